#!/usr/bin/env python3
"""Writes the dialogs' top images, both drawn on a very light gradient with
the application icon and the product name (words that need no translation):

  banner  491x130  the About box (":/about/banner"): a large icon and name;
                   the dialog's version label sits on the name's baseline,
                   right of it, and faint sound waves come in from the right
  header  640x76   every other dialog of the program (":/about/header"): a
                   slim band with a small icon and the name; its right part
                   is plain ground, so narrower dialogs simply cut it off

The icon is taken from dist/icons/tonewright.svg (run dist/icons/make_icons.py
first if you change it), so they never drift apart. The skin uses the images
as background-image, which Qt does not scale, hence the 1x and @2x PNGs
rendered next to each SVG (../svgpng.py).

Run from anywhere: python3 resources/images/about/make_about.py
"""

import os
import re
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
ROOT = os.path.normpath(os.path.join(HERE, "..", "..", ".."))
ICON = os.path.join(ROOT, "dist", "icons", "tonewright.svg")
sys.dont_write_bytecode = True  # no __pycache__ beside the images
sys.path.insert(0, os.path.dirname(HERE))
from svgpng import ACCENT, INK, write_pair  # noqa: E402

GROUND = """    <linearGradient id="bg" x1="0" y1="0" x2="1" y2="1">
      <stop offset="0" stop-color="#ffffff"/>
      <stop offset="0.6" stop-color="#f4f6f9"/>
      <stop offset="1" stop-color="#e8f2fd"/>
    </linearGradient>"""

BANNER = """<svg xmlns="http://www.w3.org/2000/svg" width="491" height="130" viewBox="0 0 491 130">
  <defs>
{ground}
{icon_defs}
  </defs>
  <rect width="491" height="130" fill="url(#bg)"/>
  <g fill="none" stroke="{accent}" stroke-linecap="round">
    <path d="M481 38 A40 40 0 0 0 481 92" stroke-opacity="0.16" stroke-width="6"/>
    <path d="M463 22 A62 62 0 0 0 463 108" stroke-opacity="0.10" stroke-width="6"/>
    <path d="M446 8 A84 84 0 0 0 446 122" stroke-opacity="0.06" stroke-width="6"/>
  </g>
  <rect y="129" width="491" height="1" fill="#e1e6ed"/>
  <g transform="translate(22 24) scale({iscale:g})">
{icon_body}
  </g>
  <text x="118" y="80" font-family="DejaVu Sans, sans-serif" font-size="30" font-weight="bold" fill="{ink}" letter-spacing="-0.5">Tonewright</text>
</svg>
"""

HEADER = """<svg xmlns="http://www.w3.org/2000/svg" width="640" height="76" viewBox="0 0 640 76">
  <defs>
    <linearGradient id="bg" x1="0" y1="0" x2="1" y2="0">
      <stop offset="0" stop-color="#ffffff"/>
      <stop offset="0.75" stop-color="#f2f7fd"/>
      <stop offset="1" stop-color="#f2f7fd"/>
    </linearGradient>
{icon_defs}
  </defs>
  <rect width="640" height="76" fill="url(#bg)"/>
  <rect y="75" width="640" height="1" fill="#e1e6ed"/>
  <g transform="translate(20 12) scale({iscale:g})">
{icon_body}
  </g>
  <text x="80" y="45" font-family="DejaVu Sans, sans-serif" font-size="20" font-weight="bold" fill="{ink}" letter-spacing="-0.3">Tonewright</text>
</svg>
"""


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


def main():
    icon_defs, icon_body = icon_parts()
    write_pair(HERE, "banner", BANNER.format(ground=GROUND, icon_defs=icon_defs,
                                             icon_body=icon_body, iscale=82 / 256,
                                             accent=ACCENT, ink=INK), 491, 130)
    write_pair(HERE, "header", HEADER.format(icon_defs=icon_defs, icon_body=icon_body,
                                             iscale=52 / 256, ink=INK), 640, 76)


if __name__ == "__main__":
    main()
