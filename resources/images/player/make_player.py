#!/usr/bin/env python3
"""Writes the player images (":/player/..."):

  play, play_on, play_down, pause, pause_on, pause_down
      the round button that floats over the video or the album picture:
      a translucent dark disc with a thin white ring and a white glyph.
      "_on" is the hover face (lighter disc, blue ring), "_down" the pressed
      face (darker and a little smaller).
  album
      the picture shown for a song without artwork: a blue gradient card
      with a large pair of beamed notes.

The style sheet uses them as background-image, which Qt does not scale, so
besides the SVG sources this also renders 1x and @2x PNGs with ffmpeg's
librsvg decoder. Run from anywhere: python3 resources/images/player/make_player.py
"""

import os
import subprocess

HERE = os.path.dirname(os.path.abspath(__file__))

ACCENT = "#32a0fb"
SIZE = 73
C = SIZE / 2  # 36.5

BUTTON = """<svg xmlns="http://www.w3.org/2000/svg" width="73" height="73" viewBox="0 0 73 73">
{edge}  <circle cx="36.5" cy="36.5" r="{r}" fill="{fill}" fill-opacity="{fill_opacity}"/>
  <circle cx="36.5" cy="36.5" r="{r}" fill="none" stroke="{ring}" stroke-opacity="{ring_opacity}" stroke-width="{ring_width}"/>
  <g fill="#fff" stroke="#fff" stroke-linejoin="round"{glyph_transform}>
{glyph}
  </g>
</svg>
"""

# A hairline just outside the disc keeps it readable over white pictures.
EDGE = """  <circle cx="36.5" cy="36.5" r="{:g}" fill="none" stroke="#000" stroke-opacity="0.16"/>
"""
GLOW = """  <circle cx="36.5" cy="36.5" r="34.4" fill="none" stroke="{}" stroke-opacity="0.35" stroke-width="3"/>
""".format(ACCENT)

# Centred on the triangle's centroid, which is what the eye takes as its middle.
PLAY = """    <path d="M30.2 24.6 L30.2 48.4 L50.8 36.5 Z" stroke-width="3.4"/>"""
PAUSE = """    <rect x="26.5" y="24" width="7.6" height="25" rx="2.2" stroke="none"/>
    <rect x="38.9" y="24" width="7.6" height="25" rx="2.2" stroke="none"/>"""

FACES = {
    # normal: dark glass, white ring
    "": dict(edge=EDGE.format(32.6), r=32, fill="#14181f", fill_opacity=0.55,
             ring="#fff", ring_opacity=0.9, ring_width=1.5, scale=1.0),
    # hover: lighter glass, blue ring with a faint blue glow
    "_on": dict(edge=GLOW, r=32, fill="#1f2733", fill_opacity=0.5,
                ring=ACCENT, ring_opacity=1, ring_width=2, scale=1.0),
    # pressed: darker and pushed in a little
    "_down": dict(edge=EDGE.format(30.6), r=30, fill="#0b0e13", fill_opacity=0.72,
                  ring="#fff", ring_opacity=0.6, ring_width=1.5, scale=0.93),
}

ALBUM = """<svg xmlns="http://www.w3.org/2000/svg" width="180" height="135" viewBox="0 0 180 135">
  <defs>
    <linearGradient id="bg" x1="0" y1="0" x2="1" y2="1">
      <stop offset="0" stop-color="#6cc1ff"/>
      <stop offset="0.55" stop-color="#3a8ef5"/>
      <stop offset="1" stop-color="#5a62e6"/>
    </linearGradient>
    <radialGradient id="hi" cx="0.22" cy="0.1" r="0.75">
      <stop offset="0" stop-color="#fff" stop-opacity="0.35"/>
      <stop offset="1" stop-color="#fff" stop-opacity="0"/>
    </radialGradient>
  </defs>
  <rect width="180" height="135" fill="url(#bg)"/>
  <rect width="180" height="135" fill="url(#hi)"/>
  <g fill="none" stroke="#fff">
    <circle cx="158" cy="122" r="44" stroke-opacity="0.10" stroke-width="10"/>
    <circle cx="158" cy="122" r="70" stroke-opacity="0.08" stroke-width="6"/>
    <circle cx="158" cy="122" r="92" stroke-opacity="0.06" stroke-width="4"/>
  </g>
  <g transform="translate(90 69)">
    <g transform="translate(0 3)" fill="#0b2a66" fill-opacity="0.18">
{note}
    </g>
    <g fill="#fff">
{note}
    </g>
  </g>
</svg>
"""

# Two beamed eighth notes drawn around (0, 0), about 70 px tall.
NOTE = """      <ellipse cx="-17" cy="24" rx="11" ry="8.4" transform="rotate(-22 -17 24)"/>
      <ellipse cx="19" cy="17" rx="11" ry="8.4" transform="rotate(-22 19 17)"/>
      <rect x="-8.2" y="-24" width="5" height="48"/>
      <rect x="27.8" y="-31" width="5" height="48"/>
      <path d="M-8.2 -24 L32.8 -33 L32.8 -21 L-8.2 -12 Z"/>"""


def write(name, text):
    path = os.path.join(HERE, name)
    with open(path, "w", encoding="utf-8") as f:
        f.write(text)
    return path


def render(svg, png, width, height):
    # The librsvg decoder hands out premultiplied pixels; PNG wants straight
    # alpha, or every soft edge and the translucent disc come out too dark.
    subprocess.run(["ffmpeg", "-v", "error", "-y", "-width", str(width),
                    "-height", str(height), "-i", svg, "-frames:v", "1",
                    "-vf", "unpremultiply=inplace=1", "-pix_fmt", "rgba", png],
                   check=True)


def button(glyph, face):
    scale = face["scale"]
    transform = ""
    if scale != 1.0:
        shift = C * (1 - scale)
        transform = ' transform="translate({:.3f} {:.3f}) scale({})"'.format(shift, shift, scale)
    return BUTTON.format(glyph=glyph, glyph_transform=transform, **face)


def main():
    for base, glyph in (("play", PLAY), ("pause", PAUSE)):
        for suffix, face in FACES.items():
            name = base + suffix
            svg = write(name + ".svg", button(glyph, face))
            render(svg, os.path.join(HERE, name + ".png"), SIZE, SIZE)
            render(svg, os.path.join(HERE, name + "@2x.png"), 2 * SIZE, 2 * SIZE)
    svg = write("album.svg", ALBUM.format(note=NOTE))
    render(svg, os.path.join(HERE, "album.png"), 180, 135)
    render(svg, os.path.join(HERE, "album@2x.png"), 360, 270)


if __name__ == "__main__":
    main()
