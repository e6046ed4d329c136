#!/usr/bin/env python3
"""Writes the application icon.

  tonewright.svg                      the master icon, 256x256 viewBox: a
                                      blue rounded square with a white
                                      phone, a note on its screen and sound
                                      waves either side
  hicolor/scalable/apps/tonewright.svg  a copy of it, for installation
  hicolor/NxN/apps/tonewright.png     renders for N = 16 ... 512

At 16, 22 and 24 pixels the master's thin strokes blur away, so those
sizes are rendered from a simpler drawing (bolder lines, one wave each
side, less margin) that only lives in a temporary file while rendering.

Needs ffmpeg built with librsvg. Run from anywhere:
python3 dist/icons/make_icons.py
"""

import os
import shutil
import subprocess
import tempfile

HERE = os.path.dirname(os.path.abspath(__file__))
SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
SMALL = (16, 22, 24)

DEFS = """  <defs>
    <linearGradient id="tw-bg" x1="0" y1="0" x2="1" y2="1">
      <stop offset="0" stop-color="#62c0ff"/>
      <stop offset="0.5" stop-color="#32a0fb"/>
      <stop offset="1" stop-color="#1f78e0"/>
    </linearGradient>
    <linearGradient id="tw-shine" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="#fff" stop-opacity="0.22"/>
      <stop offset="1" stop-color="#fff" stop-opacity="0"/>
    </linearGradient>
  </defs>
"""

ICON = """<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256" viewBox="0 0 256 256">
{defs}  <rect x="17" y="21" width="222" height="222" rx="50" fill="#0b3f7a" fill-opacity="0.08"/>
  <rect x="16.5" y="19" width="223" height="223" rx="50" fill="#0b3f7a" fill-opacity="0.10"/>
  <rect x="16" y="16" width="224" height="224" rx="50" fill="url(#tw-bg)"/>
  <rect x="16" y="16" width="224" height="112" rx="50" fill="url(#tw-shine)"/>
  <rect x="16.75" y="16.75" width="222.5" height="222.5" rx="49.25" fill="none" stroke="#0b3f7a" stroke-opacity="0.18" stroke-width="1.5"/>
  <g fill="none" stroke="#fff" stroke-linecap="round" stroke-linejoin="round">
    <rect x="92" y="58" width="72" height="140" rx="16" stroke-width="12"/>
    <path d="M119 77 H137" stroke-width="7"/>
    <path d="M188 98 A52 52 0 0 1 188 158 M68 98 A52 52 0 0 0 68 158" stroke-width="11"/>
    <path d="M208 80 A80 80 0 0 1 208 176 M48 80 A80 80 0 0 0 48 176" stroke-width="11" stroke-opacity="0.65"/>
  </g>
  <g fill="#fff">
    <ellipse cx="119" cy="158" rx="14" ry="11" transform="rotate(-20 119 158)"/>
    <rect x="126.5" y="104" width="7.5" height="54"/>
    <path d="M134 104 C144 110 152 115 149 130 C146 123 140 120 134 120 Z"/>
  </g>
</svg>
"""

# Drawn on a 16x16 grid so that at 16 px every line falls on whole pixels:
# the phone, a plain note and one wave a side. 22 and 24 px scale it up.
SMALL_ICON = """<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16" viewBox="0 0 16 16">
  <defs>
    <linearGradient id="tw-bg" x1="0" y1="0" x2="1" y2="1">
      <stop offset="0" stop-color="#5cbcff"/>
      <stop offset="1" stop-color="#1f7ee6"/>
    </linearGradient>
  </defs>
  <rect x="0.5" y="0.5" width="15" height="15" rx="3.5" fill="url(#tw-bg)" stroke="#155fb4" stroke-opacity="0.45"/>
  <g fill="none" stroke="#fff" stroke-linecap="round">
    <rect x="5.5" y="2.5" width="5" height="11" rx="1"/>
    <path d="M3.1 5.4 A4 4 0 0 0 3.1 10.6 M12.9 5.4 A4 4 0 0 1 12.9 10.6" stroke-width="1.2"/>
  </g>
  <g fill="#fff">
    <ellipse cx="7.5" cy="9.7" rx="1.5" ry="1.2"/>
    <rect x="8" y="4.5" width="1" height="5.2"/>
    <path d="M9 4.5 L10 5.3 L10 6.5 L9 5.8 Z"/>
  </g>
</svg>
"""


def render(svg, png, size):
    # The librsvg decoder gives premultiplied pixels; PNG wants straight alpha.
    os.makedirs(os.path.dirname(png), exist_ok=True)
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-width", str(size),
                    "-height", str(size), "-i", svg, "-frames:v", "1",
                    "-vf", "unpremultiply=inplace=1", "-pix_fmt", "rgba", png],
                   check=True)


def main():
    icon = ICON.format(defs=DEFS)
    small = SMALL_ICON
    master = os.path.join(HERE, "tonewright.svg")
    with open(master, "w", encoding="utf-8") as f:
        f.write(icon)
    scalable = os.path.join(HERE, "hicolor", "scalable", "apps")
    os.makedirs(scalable, exist_ok=True)
    shutil.copyfile(master, os.path.join(scalable, "tonewright.svg"))
    with tempfile.TemporaryDirectory() as tmp:
        small_svg = os.path.join(tmp, "small.svg")
        with open(small_svg, "w", encoding="utf-8") as f:
            f.write(small)
        for size in SIZES:
            png = os.path.join(HERE, "hicolor", "%dx%d" % (size, size), "apps", "tonewright.png")
            render(small_svg if size in SMALL else master, png, size)


if __name__ == "__main__":
    main()
