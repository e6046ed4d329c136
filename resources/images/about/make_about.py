#!/usr/bin/env python3
"""Writes the About box banner (":/about/banner"), 491x130: the application
icon and the product name (words that need no translation) on a very light gradient,
with a faint waveform running out on the right.

The icon is taken from dist/icons/tonewright.svg (run dist/icons/make_icons.py
first if you change it), so the two never drift apart. The style sheet uses
the banner as background-image, which is not scaled, hence the 1x and @2x
PNGs rendered with ffmpeg's librsvg decoder next to the SVG.

Run from anywhere: python3 resources/images/about/make_about.py
"""

import math
import os
import re
import subprocess

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.normpath(os.path.join(HERE, "..", "..", ".."))
ICON = os.path.join(ROOT, "dist", "icons", "tonewright.svg")

WIDTH, HEIGHT = 491, 130
ICON_BOX = 82          # the icon's 256 box; its visible tile is 72 px of it
ICON_X, ICON_Y = 22, (HEIGHT - ICON_BOX) / 2

BANNER = """<svg xmlns="http://www.w3.org/2000/svg" width="491" height="130" viewBox="0 0 491 130">
  <defs>
    <linearGradient id="bg" x1="0" y1="0" x2="1" y2="1">
      <stop offset="0" stop-color="#ffffff"/>
      <stop offset="0.6" stop-color="#f4f6f9"/>
      <stop offset="1" stop-color="#e8f2fd"/>
    </linearGradient>
    <linearGradient id="fade" gradientUnits="userSpaceOnUse" x1="350" y1="0" x2="491" y2="0">
      <stop offset="0" stop-color="#32a0fb" stop-opacity="0"/>
      <stop offset="0.7" stop-color="#32a0fb" stop-opacity="0.22"/>
      <stop offset="1" stop-color="#32a0fb" stop-opacity="0.06"/>
    </linearGradient>
{icon_defs}
  </defs>
  <rect width="491" height="130" fill="url(#bg)"/>
  <g fill="url(#fade)">
{wave}
  </g>
  <rect y="129" width="491" height="1" fill="#e1e6ed"/>
  <g transform="translate({ix:g} {iy:g}) scale({iscale:g})">
{icon_body}
  </g>
  <text x="118" y="78" font-family="DejaVu Sans, sans-serif" font-size="34" font-weight="bold" fill="#1f2937" letter-spacing="-0.5">Tonewright</text>
</svg>
"""


def wave():
    """Rounded bars of a made-up waveform from x = 350 nearly to the
    right edge, fading in from the text and out again at the edge."""
    bars = []
    x = 350.0
    i = 0
    while x < WIDTH - 10:
        level = 0.5 + 0.3 * math.sin(i * 0.9) + 0.2 * math.sin(i * 2.3 + 1.0)
        h = round(8 + 56 * level * level, 1)
        bars.append('    <rect x="{:g}" y="{:g}" width="3" height="{:g}" rx="1.5"/>'.format(
            x, round(HEIGHT / 2 - h / 2, 1), h))
        x += 6
        i += 1
    return "\n".join(bars)


def icon_parts():
    """The master icon's <defs> content and drawing, ready to nest."""
    with open(ICON, encoding="utf-8") as f:
        text = f.read()
    body = re.search(r"<svg[^>]*>(.*)</svg>", text, re.S).group(1)
    defs = re.search(r"<defs>(.*?)</defs>", body, re.S)
    defs_text = defs.group(1).strip("\n").rstrip() if defs else ""
    body = body.replace(defs.group(0), "") if defs else body
    lines = [line for line in body.strip("\n").splitlines() if line.strip()]
    return defs_text, "\n".join("  " + line for line in lines)


def render(svg, png, width, height):
    # The librsvg decoder gives premultiplied pixels; PNG wants straight alpha.
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-width", str(width),
                    "-height", str(height), "-i", svg, "-frames:v", "1",
                    "-vf", "unpremultiply=inplace=1", "-pix_fmt", "rgba", png],
                   check=True)


def main():
    icon_defs, icon_body = icon_parts()
    svg = os.path.join(HERE, "banner.svg")
    with open(svg, "w", encoding="utf-8") as f:
        f.write(BANNER.format(icon_defs=icon_defs, icon_body=icon_body, wave=wave(),
                              ix=ICON_X, iy=ICON_Y, iscale=ICON_BOX / 256))
    render(svg, os.path.join(HERE, "banner.png"), WIDTH, HEIGHT)
    render(svg, os.path.join(HERE, "banner@2x.png"), 2 * WIDTH, 2 * HEIGHT)


if __name__ == "__main__":
    main()
