#!/usr/bin/env python3
"""Writes the editor toolbar images (":/bar/...").

Every toolbar glyph is a 24x24 SVG drawn with 2 px round strokes (or solid
shapes where a filled glyph reads better) and comes in three colours:

  NAME.svg      normal    slate
  NAME_on.svg   hover     accent blue
  NAME_off.svg  disabled  light grey

create*.svg are the faces of the big "Start to Create" button, a 120x44
blue pill with a white phone-and-note glyph; its caption is a tooltip, so
there is no text on it.

Run from anywhere: python3 resources/images/bar/make_bar.py
"""

import os

HERE = os.path.dirname(os.path.abspath(__file__))

VARIANTS = {"": "#4a5563", "_on": "#32a0fb", "_off": "#b8c0cc"}

ICON = """<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24">
  <g fill="none" stroke="{c}" stroke-width="2" stroke-linecap="round" stroke-linejoin="round">
{glyph}
  </g>
</svg>
"""

# Inside a glyph "{c}" is the variant's colour, for the solid parts.
GLYPHS = {
    "zoom_in": """    <circle cx="10.5" cy="10.5" r="6.5"/>
    <path d="M15.3 15.3 L20 20" stroke-width="2.4"/>
    <path d="M7.8 10.5 H13.2 M10.5 7.8 V13.2"/>""",
    "zoom_out": """    <circle cx="10.5" cy="10.5" r="6.5"/>
    <path d="M15.3 15.3 L20 20" stroke-width="2.4"/>
    <path d="M7.8 10.5 H13.2"/>""",
    # The selection's edges: a bracket at the play cursor's head, next to
    # a faint bit of wave on the side that gets selected.
    "set_begin": """    <path d="M10.5 8 H6 V20 H10.5"/>
    <path d="M2 2.6 H10 L6 6.4 Z" fill="{c}" stroke-width="1.4"/>
    <path d="M14 11 V17 M18 8.5 V19.5 M22 12 V16" stroke-opacity="0.45"/>""",
    "set_end": """    <path d="M13.5 8 H18 V20 H13.5"/>
    <path d="M14 2.6 H22 L18 6.4 Z" fill="{c}" stroke-width="1.4"/>
    <path d="M10 11 V17 M6 8.5 V19.5 M2 12 V16" stroke-opacity="0.45"/>""",
    "play": """    <path d="M8 5 V19 L19.5 12 Z" fill="{c}"/>""",
    "pause": """    <rect x="6" y="4.5" width="4" height="15" rx="1.2" fill="{c}" stroke="none"/>
    <rect x="14" y="4.5" width="4" height="15" rx="1.2" fill="{c}" stroke="none"/>""",
    # Play just the selection.
    "preview": """    <path d="M7 5 H4 V19 H7 M17 5 H20 V19 H17"/>
    <path d="M10 8.5 V15.5 L15.5 12 Z" fill="{c}" stroke-width="1.6"/>""",
    "volume_down": """    <path d="M5 9.5 H8 L12.5 5.5 V18.5 L8 14.5 H5 Z" fill="{c}" stroke-width="1.6"/>
    <path d="M16 9 A4 4 0 0 1 16 15"/>""",
    "volume_up": """    <path d="M3 9.5 H6 L10.5 5.5 V18.5 L6 14.5 H3 Z" fill="{c}" stroke-width="1.6"/>
    <path d="M14 9 A4 4 0 0 1 14 15"/>
    <path d="M17 6 A8.2 8.2 0 0 1 17 18"/>""",
    "back": """    <path d="M14.5 5 L7.5 12 L14.5 19" stroke-width="2.2"/>""",
    "forward": """    <path d="M9.5 5 L16.5 12 L9.5 19" stroke-width="2.2"/>""",
    # A screen with a play mark: show or hide the video picture.
    "video": """    <rect x="3" y="4" width="18" height="13" rx="2"/>
    <path d="M8 21 H16 M12 17 V21"/>
    <path d="M10.5 8 V13 L14.5 10.5 Z" fill="{c}" stroke-width="1.4"/>""",
    "open": """    <path d="M3 7 A2 2 0 0 1 5 5 H9 L11 7 H19 A2 2 0 0 1 21 9 V17 A2 2 0 0 1 19 19 H5 A2 2 0 0 1 3 17 Z"/>
    <path d="M12 16.5 V10.5 M9.3 13 L12 10.3 L14.7 13"/>""",
    # A speech bubble with an outgoing arrow.
    "share": """    <path d="M5 4 H19 A2 2 0 0 1 21 6 V15 A2 2 0 0 1 19 17 H11 L7 20.5 V17 H5 A2 2 0 0 1 3 15 V6 A2 2 0 0 1 5 4 Z"/>
    <path d="M7.5 13.5 C7.5 11 9.5 9.3 12.5 9.3 H16.5 M14 6.8 L16.5 9.3 L14 11.8"/>""",
    "like": """    <rect x="3" y="10" width="4" height="10" rx="1"/>
    <path d="M7 10 L10.6 3.9 A1.9 1.9 0 0 1 14 5.1 V9 H18.6 A2 2 0 0 1 20.6 11.4 L19.4 18.4 A2 2 0 0 1 17.4 20 H7"/>""",
}

CREATE = """<svg xmlns="http://www.w3.org/2000/svg" width="120" height="44" viewBox="0 0 120 44">
  <defs>
    <linearGradient id="g" gradientUnits="userSpaceOnUse" x1="0" y1="0.5" x2="0" y2="43.5">
      <stop offset="0" stop-color="{top}"/>
      <stop offset="1" stop-color="{bottom}"/>
    </linearGradient>
    <linearGradient id="s" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="#fff" stop-opacity="{shine}"/>
      <stop offset="1" stop-color="#fff" stop-opacity="0"/>
    </linearGradient>
  </defs>
  <rect x="0.5" y="0.5" width="119" height="43" rx="21.5" fill="url(#g)" stroke="{edge}"/>
  <rect x="2" y="1.5" width="116" height="20" rx="10" fill="url(#s)"/>
  <g transform="translate(0 {dy})">
    <g fill="none" stroke="{glyph}" stroke-opacity="{glyph_opacity}" stroke-width="2.2" stroke-linecap="round" stroke-linejoin="round">
      <rect x="46" y="8" width="19" height="28" rx="4"/>
      <path d="M52 11.8 H55.5"/>
    </g>
    <g fill="{glyph}" fill-opacity="{glyph_opacity}">
      <ellipse cx="53.6" cy="27.4" rx="3.1" ry="2.4" transform="rotate(-20 53.6 27.4)"/>
      <rect x="55.5" y="16" width="1.9" height="11.4"/>
      <path d="M57.4 16 C59.6 17.3 61.4 18.2 60.7 21.6 C60 20.1 58.8 19.5 57.4 19.5 Z"/>
      <!-- ringed in the face's own gradient so it seems cut out of the phone -->
      <circle cx="67" cy="11.5" r="7.2" stroke="url(#g)" stroke-width="2.4"/>
    </g>
    <path d="M67 8.2 V14.8 M63.7 11.5 H70.3" stroke="{edge}" stroke-width="2" stroke-linecap="round"/>
  </g>
</svg>
"""

CREATE_FACES = {
    "create": dict(top="#4fb3ff", bottom="#2188ec", edge="#1b78d4", shine=0.28,
                   glyph="#fff", glyph_opacity=1, dy=0),
    "create_on": dict(top="#6cc1ff", bottom="#3598f5", edge="#2a88e0", shine=0.32,
                      glyph="#fff", glyph_opacity=1, dy=0),
    "create_down": dict(top="#1f82e2", bottom="#1a6fc9", edge="#1560b0", shine=0.08,
                        glyph="#fff", glyph_opacity=0.95, dy=1),
    "create_off": dict(top="#d3d9e1", bottom="#c0c8d3", edge="#b2bac6", shine=0.3,
                       glyph="#fff", glyph_opacity=0.9, dy=0),
}


def write(name, text):
    with open(os.path.join(HERE, name + ".svg"), "w", encoding="utf-8") as f:
        f.write(text)


def main():
    for name, glyph in GLYPHS.items():
        for suffix, colour in VARIANTS.items():
            write(name + suffix, ICON.format(c=colour, glyph=glyph.replace("{c}", colour)))
    for name, face in CREATE_FACES.items():
        write(name, CREATE.format(**face))


if __name__ == "__main__":
    main()
