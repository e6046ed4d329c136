#!/usr/bin/env python3
"""Writes the editor's and the navigation bar's button images (":/bar/...").

Glyphs: 24x24, drawn with 2 px round strokes (solid shapes where a filled
glyph reads better), in three colours:

  NAME      at rest   slate
  NAME_on   hover     accent blue (also pressed and checked: the skin puts
                      a tinted face behind it)
  NAME_off  disabled  light grey

  zoom_in zoom_out set_begin set_end preview preview_pause suggest volume_down
  volume_up back forward video open share like

Faces that carry their own ground, each in NAME, NAME_on, NAME_down
(pressed) and NAME_off:

  play, pause  40x40  the editor's main play button: an accent disc with a
                      white glyph
  create       120x44 the "Start to Create" button: an accent pill with a
                      white phone-and-plus glyph (its caption is a tooltip)

Every image is written as an SVG source and rendered to NAME.png and
NAME@2x.png (see ../svgpng.py): the skin uses the PNGs.

Run from anywhere: python3 resources/images/bar/make_bar.py
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.dont_write_bytecode = True  # no __pycache__ beside the images
sys.path.insert(0, os.path.dirname(HERE))
from svgpng import ACCENT, DISABLED, SLATE, write_pair  # noqa: E402

VARIANTS = {"": SLATE, "_on": ACCENT, "_off": DISABLED}

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
    # The selection's edges: a bracket under a marker flag, next to a faint
    # bit of wave on the side that gets selected.
    "set_begin": """    <path d="M9.5 6 H5.5 V20 H9.5"/>
    <path d="M3.4 2.6 H10 L6.7 5.6 Z" fill="{c}" stroke-width="1.4"/>
    <path d="M13 11 V15 M16.5 8.5 V17.5 M20 10.5 V15.5" stroke-opacity="0.5"/>""",
    "set_end": """    <path d="M14.5 6 H18.5 V20 H14.5"/>
    <path d="M14 2.6 H20.6 L17.3 5.6 Z" fill="{c}" stroke-width="1.4"/>
    <path d="M11 11 V15 M7.5 8.5 V17.5 M4 10.5 V15.5" stroke-opacity="0.5"/>""",
    # Play just the selection: a play mark between the selection's brackets,
    # and the pause mark in its place while the selection plays.
    "preview": """    <path d="M7 5 H4 V19 H7 M17 5 H20 V19 H17"/>
    <path d="M10 8.5 V15.5 L15.5 12 Z" fill="{c}" stroke-width="1.6"/>""",
    # The best part: a sparkle between the selection's brackets.
    "suggest": """    <path d="M7 5 H4 V19 H7 M17 5 H20 V19 H17"/>
    <path d="M12 6.5 L13.3 10.7 L17.5 12 L13.3 13.3 L12 17.5 L10.7 13.3 L6.5 12 L10.7 10.7 Z" fill="{c}" stroke-width="1.2"/>""",
    "preview_pause": """    <path d="M7 5 H4 V19 H7 M17 5 H20 V19 H17"/>
    <path d="M10 8.5 V15.5 M14 8.5 V15.5" stroke-width="2.6"/>""",
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
    # A folder with an arrow coming out of it: open a file.
    "open": """    <path d="M3 7 A2 2 0 0 1 5 5 H9 L11 7 H19 A2 2 0 0 1 21 9 V17 A2 2 0 0 1 19 19 H5 A2 2 0 0 1 3 17 Z"/>
    <path d="M12 16.5 V10.5 M9.3 13 L12 10.3 L14.7 13"/>""",
    # A speech bubble with an outgoing arrow.
    "share": """    <path d="M5 4 H19 A2 2 0 0 1 21 6 V15 A2 2 0 0 1 19 17 H11 L7 20.5 V17 H5 A2 2 0 0 1 3 15 V6 A2 2 0 0 1 5 4 Z"/>
    <path d="M7.5 13.5 C7.5 11 9.5 9.3 12.5 9.3 H16.5 M14 6.8 L16.5 9.3 L14 11.8"/>""",
    "like": """    <rect x="3" y="10" width="4" height="10" rx="1"/>
    <path d="M7 10 L10.6 3.9 A1.9 1.9 0 0 1 14 5.1 V9 H18.6 A2 2 0 0 1 20.6 11.4 L19.4 18.4 A2 2 0 0 1 17.4 20 H7"/>""",
}

# The faces of the accent buttons: gradient top and bottom, edge, the
# strength of the shine on the upper half, the glyph's opacity, and how far
# the glyph sinks when pressed.
FACES = {
    "": dict(top="#4fb3ff", bottom="#2188ec", edge="#1b78d4", shine=0.28, glyph=1, dy=0),
    "_on": dict(top="#6cc1ff", bottom="#3598f5", edge="#2a88e0", shine=0.32, glyph=1, dy=0),
    "_down": dict(top="#1f82e2", bottom="#1a6fc9", edge="#1560b0", shine=0.08, glyph=0.95, dy=0.6),
    "_off": dict(top="#d3d9e1", bottom="#c0c8d3", edge="#b2bac6", shine=0.3, glyph=0.9, dy=0),
}

DISC = """<svg xmlns="http://www.w3.org/2000/svg" width="40" height="40" viewBox="0 0 40 40">
  <defs>
    <linearGradient id="g" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="{top}"/>
      <stop offset="1" stop-color="{bottom}"/>
    </linearGradient>
    <linearGradient id="s" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="#fff" stop-opacity="{shine}"/>
      <stop offset="1" stop-color="#fff" stop-opacity="0"/>
    </linearGradient>
  </defs>
  <circle cx="20" cy="20" r="19.5" fill="url(#g)"/>
  <circle cx="20" cy="20" r="19" fill="none" stroke="{edge}" stroke-opacity="0.7"/>
  <ellipse cx="20" cy="11" rx="14" ry="9" fill="url(#s)"/>
  <g transform="translate(0 {dy})" fill="#fff" fill-opacity="{glyph}" stroke="#fff" stroke-opacity="{glyph}" stroke-linejoin="round">
{mark}
  </g>
</svg>
"""

# Centred on the triangle's centroid, which is what the eye takes as its middle.
DISC_MARKS = {
    "play": """    <path d="M16.2 12.6 V27.4 L28.2 20 Z" stroke-width="2.2"/>""",
    "pause": """    <rect x="13.8" y="12.8" width="4.4" height="14.4" rx="1.3" stroke="none"/>
    <rect x="21.8" y="12.8" width="4.4" height="14.4" rx="1.3" stroke="none"/>""",
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
    <g fill="none" stroke="#fff" stroke-opacity="{glyph}" stroke-width="2.2" stroke-linecap="round" stroke-linejoin="round">
      <rect x="46" y="8" width="19" height="28" rx="4"/>
      <path d="M52 11.8 H55.5"/>
    </g>
    <g fill="#fff" fill-opacity="{glyph}">
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


def main():
    for name, glyph in GLYPHS.items():
        for suffix, colour in VARIANTS.items():
            text = ICON.format(c=colour, glyph=glyph.replace("{c}", colour))
            write_pair(HERE, name + suffix, text, 24, 24)
    for suffix, face in FACES.items():
        for name, mark in DISC_MARKS.items():
            write_pair(HERE, name + suffix, DISC.format(mark=mark, **face), 40, 40)
        write_pair(HERE, "create" + suffix, CREATE.format(**face), 120, 44)


if __name__ == "__main__":
    main()
