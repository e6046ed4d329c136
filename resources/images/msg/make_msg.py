#!/usr/bin/env python3
"""Writes the icons of the editor's message pane (":/msg/..."):

  musical  24x24  blue note shown left of a song's title
  film     24x24  blue film strip shown left of a video's title
  close    20x20  the pane's close button: a light grey disc with a slate
                  cross; close_on (hover) a darker disc, close_down (pressed)
                  darker still. The skin shows them, so they are rendered to
                  PNG pairs (NAME.png, NAME@2x.png, see ../svgpng.py); the
                  two pictures above are drawn by the program through QIcon,
                  which renders the SVG itself.

Run from anywhere: python3 resources/images/msg/make_msg.py
"""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.dont_write_bytecode = True  # no __pycache__ beside the images
sys.path.insert(0, os.path.dirname(HERE))
from svgpng import write_pair  # noqa: E402

ACCENT = "#32a0fb"
SLATE = "#4a5563"

MUSICAL = """<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24">
  <g fill="{accent}">
    <ellipse cx="6.6" cy="18.2" rx="3.3" ry="2.6" transform="rotate(-20 6.6 18.2)"/>
    <ellipse cx="17.4" cy="16.2" rx="3.3" ry="2.6" transform="rotate(-20 17.4 16.2)"/>
    <rect x="8.4" y="6.2" width="1.9" height="12"/>
    <rect x="19.2" y="4.2" width="1.9" height="12"/>
    <path d="M8.4 6.2 L21.1 3.4 L21.1 6.6 L8.4 9.4 Z"/>
  </g>
</svg>
""".format(accent=ACCENT)

FILM = """<svg xmlns="http://www.w3.org/2000/svg" width="24" height="24" viewBox="0 0 24 24">
  <path fill="{accent}" fill-rule="evenodd" d="M5 3 H19 A2 2 0 0 1 21 5 V19 A2 2 0 0 1 19 21 H5 A2 2 0 0 1 3 19 V5 A2 2 0 0 1 5 3 Z
    M5 5 V7 H7 V5 Z M5 9 V11 H7 V9 Z M5 13 V15 H7 V13 Z M5 17 V19 H7 V17 Z
    M17 5 V7 H19 V5 Z M17 9 V11 H19 V9 Z M17 13 V15 H19 V13 Z M17 17 V19 H19 V17 Z
    M9 5 V19 H15 V5 Z"/>
  <path fill="{accent}" d="M10.6 9.6 L10.6 14.4 L14 12 Z" stroke="{accent}" stroke-width="0.8" stroke-linejoin="round"/>
</svg>
""".format(accent=ACCENT)

CLOSE = """<svg xmlns="http://www.w3.org/2000/svg" width="20" height="20" viewBox="0 0 20 20">
  <circle cx="10" cy="10" r="9" fill="{disc}"/>
  <path d="M7 7 L13 13 M13 7 L7 13" fill="none" stroke="{cross}" stroke-width="1.7" stroke-linecap="round"/>
</svg>
"""

CLOSE_FACES = {
    "close": dict(disc="#e3e7ed", cross=SLATE),
    "close_on": dict(disc="#d3d9e1", cross="#1f2937"),
    "close_down": dict(disc="#c3cad4", cross="#1f2937"),
}


def main():
    for name, text in (("musical", MUSICAL), ("film", FILM)):
        with open(os.path.join(HERE, name + ".svg"), "w", encoding="utf-8") as f:
            f.write(text)
    for name, face in CLOSE_FACES.items():
        write_pair(HERE, name, CLOSE.format(**face), 20, 20)


if __name__ == "__main__":
    main()
