#!/usr/bin/env python3
"""Writes the library icons (":/li/..."): one 32x32 SVG per playlist kind and
two song-list glyphs. Every playlist icon is the same rounded tile with a
top-to-bottom gradient of its own colour and a white glyph; the song-list
glyphs are the bare glyph in a light slate. Edit the glyphs or colours here
and run `python3 resources/images/li/make_icons.py` (from anywhere: the SVGs
are written beside this script); the SVGs are what the program ships, drawn
through QIcon, which renders them at the screen's density."""

import os

HERE = os.path.dirname(os.path.abspath(__file__))

TILE = """<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">
  <defs>
    <linearGradient id="g" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="{top}"/>
      <stop offset="1" stop-color="{bottom}"/>
    </linearGradient>
  </defs>
  <rect x="2" y="2" width="28" height="28" rx="6" fill="url(#g)"/>
  <rect x="2.5" y="2.5" width="27" height="27" rx="5.5" fill="none" stroke="#000" stroke-opacity="0.12"/>
  <g fill="#fff" stroke="#fff">
{glyph}
  </g>
</svg>
"""

BARE = """<svg xmlns="http://www.w3.org/2000/svg" width="32" height="32" viewBox="0 0 32 32">
  <g fill="{colour}" stroke="{colour}">
{glyph}
  </g>
</svg>
"""

# The song list's glyphs sit beside every title: a lighter slate keeps the
# titles in front.
LIST_GLYPH = "#7d8898"

GLYPHS = {
    # Two beamed eighth notes.
    "music": """    <ellipse cx="11" cy="22" rx="3.6" ry="2.8" transform="rotate(-20 11 22)" stroke="none"/>
    <ellipse cx="21" cy="20" rx="3.6" ry="2.8" transform="rotate(-20 21 20)" stroke="none"/>
    <rect x="13.2" y="9" width="2" height="13" stroke="none"/>
    <rect x="23.2" y="7" width="2" height="13" stroke="none"/>
    <path d="M13.2 9 L25.2 7 L25.2 10 L13.2 12 Z" stroke="none"/>""",
    # A film frame with sprocket holes and a play mark.
    "video": """    <rect x="7" y="8" width="18" height="16" rx="2" stroke="none"/>
    <g fill="{tile}" stroke="none">
      <rect x="9" y="9.5" width="2" height="2"/><rect x="13" y="9.5" width="2" height="2"/>
      <rect x="17" y="9.5" width="2" height="2"/><rect x="21" y="9.5" width="2" height="2"/>
      <rect x="9" y="20.5" width="2" height="2"/><rect x="13" y="20.5" width="2" height="2"/>
      <rect x="17" y="20.5" width="2" height="2"/><rect x="21" y="20.5" width="2" height="2"/>
      <path d="M14 13 L14 19 L19 16 Z"/>
    </g>""",
    # A television with antennas.
    "tv_show": """    <rect x="6" y="11" width="20" height="14" rx="2.5" stroke="none"/>
    <path d="M16 11 L11.5 6 M16 11 L20.5 6" fill="none" stroke-width="1.8" stroke-linecap="round"/>
    <rect x="9" y="14" width="14" height="8" rx="1" fill="{tile}" stroke="none"/>""",
    # A microphone head inside broadcast arcs.
    "podcasts": """    <circle cx="16" cy="14" r="3" stroke="none"/>
    <path d="M11.4 18.6 A6.5 6.5 0 1 1 20.6 18.6" fill="none" stroke-width="1.8" stroke-linecap="round"/>
    <path d="M8.9 21.1 A10 10 0 1 1 23.1 21.1" fill="none" stroke-width="1.8" stroke-linecap="round"/>
    <path d="M14.6 18.5 L17.4 18.5 L16.8 26 L15.2 26 Z" stroke="none"/>""",
    # A bell with its clapper.
    "ringtones": """    <circle cx="16" cy="6.8" r="1.4" stroke="none"/>
    <path d="M16 7.5 C11.5 7.5 10 11 10 14.5 L10 18 L8 21.5 L24 21.5 L22 18 L22 14.5 C22 11 20.5 7.5 16 7.5 Z" stroke="none"/>
    <circle cx="16" cy="24" r="2" stroke="none"/>""",
    # A shopping bag.
    "purchase": """    <path d="M8 12 L24 12 L23 26 L9 26 Z" stroke="none"/>
    <path d="M12.5 14 V10.5 A3.5 3.5 0 0 1 19.5 10.5 V14" fill="none" stroke-width="2" stroke-linecap="round"/>""",
    # An atom.
    "genius": """    <g fill="none" stroke-width="1.6">
      <ellipse cx="16" cy="16" rx="10" ry="4"/>
      <ellipse cx="16" cy="16" rx="10" ry="4" transform="rotate(60 16 16)"/>
      <ellipse cx="16" cy="16" rx="10" ry="4" transform="rotate(-60 16 16)"/>
    </g>
    <circle cx="16" cy="16" r="2.2" stroke="none"/>""",
    # A list with a small note: a playlist of one's own.
    "file": """    <rect x="7" y="9" width="14" height="2.2" rx="1" stroke="none"/>
    <rect x="7" y="14" width="14" height="2.2" rx="1" stroke="none"/>
    <rect x="7" y="19" width="9" height="2.2" rx="1" stroke="none"/>
    <ellipse cx="21.6" cy="24" rx="2.6" ry="2" transform="rotate(-20 21.6 24)" stroke="none"/>
    <rect x="23.2" y="15" width="1.8" height="9" stroke="none"/>
    <path d="M23.2 15 C25 16 26.5 16.5 26 19 C25.4 17.8 24.3 17.4 23.2 17.4 Z" stroke="none"/>""",
}

BARE_GLYPHS = {
    # One eighth note.
    "f_music": """    <ellipse cx="12" cy="23" rx="5" ry="3.8" transform="rotate(-20 12 23)" stroke="none"/>
    <rect x="15.5" y="5" width="2.4" height="18" stroke="none"/>
    <path d="M17.9 5 C21 8 25 9 24 15 C23 12 20.5 11 17.9 11 Z" stroke="none"/>""",
    # A film strip with a play mark.
    "f_video": """    <rect x="5" y="7" width="22" height="18" rx="2.5" stroke="none"/>
    <g fill="#fff" stroke="none">
      <rect x="7" y="8.6" width="2.2" height="1.8"/><rect x="11.3" y="8.6" width="2.2" height="1.8"/>
      <rect x="15.6" y="8.6" width="2.2" height="1.8"/><rect x="19.9" y="8.6" width="2.2" height="1.8"/>
      <rect x="7" y="21.6" width="2.2" height="1.8"/><rect x="11.3" y="21.6" width="2.2" height="1.8"/>
      <rect x="15.6" y="21.6" width="2.2" height="1.8"/><rect x="19.9" y="21.6" width="2.2" height="1.8"/>
      <rect x="7.5" y="11.8" width="17" height="8.4" rx="1"/>
    </g>
    <path d="M14 13.5 L14 18.5 L18.5 16 Z" stroke="none"/>""",
}

COLOURS = {
    "music": ("#5b8def", "#3a66d1"),
    "video": ("#8e6cef", "#6a45d1"),
    "tv_show": ("#3fb6c8", "#218fa3"),
    "podcasts": ("#b05bef", "#8a36c9"),
    "ringtones": ("#f29a3a", "#d9731b"),
    "purchase": ("#4cc27a", "#2e9b58"),
    "genius": ("#ef5b7a", "#cc3a5a"),
    "file": ("#8a97ab", "#66758c"),
}


def main():
    for name, glyph in GLYPHS.items():
        top, bottom = COLOURS[name]
        with open(os.path.join(HERE, name + ".svg"), "w", encoding="utf-8") as f:
            f.write(TILE.format(top=top, bottom=bottom, glyph=glyph.replace("{tile}", bottom)))
    for name, glyph in BARE_GLYPHS.items():
        with open(os.path.join(HERE, name + ".svg"), "w", encoding="utf-8") as f:
            f.write(BARE.format(colour=LIST_GLYPH, glyph=glyph))


if __name__ == "__main__":
    main()
