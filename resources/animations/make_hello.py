#!/usr/bin/env python3
"""Draws the welcome pane's animation and its still picture.

A phone plays a tune: the beamed note on its screen beats gently, the
equaliser bars below it bounce, and sound waves ripple out of both sides.
Every frame is written as an SVG file into a temporary directory, then the
ffmpeg command line (built with librsvg) rasterises the frames and packs them
into a palette GIF without dithering.

The pictures are drawn at twice their logical size (480x320 for 240x160) so
that the program can show them sharp on high-DPI screens. The background is
the welcome pane's own colour and is opaque: no GIF transparency, so the
antialiased edges are blended with the right colour already.

Usage (from the repository root):
    python3 resources/animations/make_hello.py [output directory]
Writes hello.gif and hello.png (by default next to this script).
"""

import math
import os
import shutil
import subprocess
import sys
import tempfile

# --- canvas and timing ------------------------------------------------------
WIDTH, HEIGHT = 480, 320          # device pixels (logical 240x160 at 2x)
FRAMES = 24                       # one loop
DELAY_MS = 80                     # per frame: the loop lasts 1.92 s
STILL_FRAME = 4                   # the frame that hello.png shows
COLOURS = 64                      # GIF palette size: plenty for flat art

# --- colours ----------------------------------------------------------------
BACKGROUND = "#F4F6F9"            # the welcome pane
SLATE = "#626567"                 # phone outline and details
ACCENT = "#32A0FB"                # brand blue: note, bars, waves
BODY = "#FFFFFF"                  # phone body between outline and screen
SCREEN = "#E6F2FE"                # a light tint of the accent
SHADOW = "#E2E7EE"                # the soft floor shadow under the phone

# --- geometry (device pixels) ------------------------------------------------
CX, CY = 240.0, 152.0             # centre of the phone and of the waves
PHONE_W, PHONE_H = 124.0, 220.0   # outer size of the phone body
PHONE_R = 26.0                    # its corner radius
OUTLINE = 8.0                     # width of its outline
SCREEN_INSET_X = 14.0             # from the outer edge of the body
SCREEN_INSET_TOP = 32.0
SCREEN_INSET_BOTTOM = 32.0
SCREEN_R = 9.0

WAVES = 3                         # waves on each side, evenly staggered
WAVE_R0, WAVE_R1 = 90.0, 178.0    # radius where a wave is born and where it dies
WAVE_SPAN = math.radians(30)      # half the angle an arc covers
WAVE_W0, WAVE_W1 = 9.0, 4.0       # its stroke width, young and old

BEATS = 3                         # note beats per loop, one per new wave
BARS = 5                          # equaliser bars on the screen


def fmt(v):
    """A number for SVG, short and stable."""
    s = "%.2f" % v
    s = s.rstrip("0").rstrip(".")
    return "0" if s == "-0" else s


def smoothstep(e0, e1, x):
    t = min(max((x - e0) / (e1 - e0), 0.0), 1.0)
    return t * t * (3.0 - 2.0 * t)


def wave_arc(radius, side):
    """Path of one arc around the centre; side is +1 (right) or -1 (left)."""
    a = WAVE_SPAN
    x0 = CX + side * radius * math.cos(a)
    y0 = CY - radius * math.sin(a)
    y1 = CY + radius * math.sin(a)
    sweep = 1 if side > 0 else 0
    return "M%s %sA%s %s 0 0 %d %s %s" % (
        fmt(x0), fmt(y0), fmt(radius), fmt(radius), sweep, fmt(x0), fmt(y1))


def waves(t):
    """All the waves at loop time t in [0, 1)."""
    out = []
    for i in range(WAVES):
        p = (t + i / WAVES) % 1.0               # age of this wave, 0..1
        r = WAVE_R0 + (WAVE_R1 - WAVE_R0) * p
        alpha = smoothstep(0.0, 0.22, p) * (1.0 - smoothstep(0.45, 1.0, p))
        if alpha < 0.01:
            continue
        w = WAVE_W0 + (WAVE_W1 - WAVE_W0) * p
        for side in (-1, 1):
            out.append('<path d="%s" fill="none" stroke="%s" stroke-width="%s" '
                       'stroke-linecap="round" stroke-opacity="%s"/>'
                       % (wave_arc(r, side), ACCENT, fmt(w), "%.3f" % alpha))
    return out


def note(cx, cy, scale):
    """A pair of beamed eighth notes, centred on (cx, cy), about 60 px tall."""
    # Drawn around the origin, in a box of roughly 54x60.
    head = ('<ellipse cx="%s" cy="%s" rx="10.5" ry="8" '
            'transform="rotate(-22 %s %s)"/>')
    parts = [
        head % ("-16", "20", "-16", "20"),
        head % ("16", "14", "16", "14"),
        # stems, flush with the right side of each head
        '<rect x="-7.6" y="-26" width="5.2" height="46"/>',
        '<rect x="24.4" y="-32" width="5.2" height="46"/>',
        # the beam, slanting up to the right like the heads
        '<path d="M-7.6 -26L29.6 -32V-21L-7.6 -15Z"/>',
    ]
    return ('<g fill="%s" transform="translate(%s %s) scale(%s)">%s</g>'
            % (ACCENT, fmt(cx), fmt(cy), "%.4f" % scale, "".join(parts)))


def bars(t, left, right, base):
    """The equaliser: bars of looping heights standing on y = base."""
    # Each bar moves with whole numbers of cycles per loop so the loop closes.
    cycles = (2, 3, 1, 3, 2)
    phases = (0.10, 0.55, 0.30, 0.85, 0.65)
    lows = (11, 13, 12, 14, 11)
    highs = (22, 30, 34, 28, 20)
    bw = 8.0
    gap = ((right - left) - BARS * bw) / (BARS - 1)
    out = []
    for i in range(BARS):
        s = 0.5 - 0.5 * math.cos(2 * math.pi * (cycles[i] * t + phases[i]))
        h = lows[i] + (highs[i] - lows[i]) * s
        x = left + i * (bw + gap)
        out.append('<rect x="%s" y="%s" width="%s" height="%s" rx="%s"/>'
                   % (fmt(x), fmt(base - h), fmt(bw), fmt(h), fmt(bw / 2)))
    return '<g fill="%s" fill-opacity="0.55">%s</g>' % (ACCENT, "".join(out))


def phone(t):
    """The phone body, its screen and what the screen shows."""
    half = OUTLINE / 2
    x0, y0 = CX - PHONE_W / 2, CY - PHONE_H / 2
    out = [
        # body: the outline is stroked on the centre line of its width
        '<rect x="%s" y="%s" width="%s" height="%s" rx="%s" fill="%s" '
        'stroke="%s" stroke-width="%s"/>'
        % (fmt(x0 + half), fmt(y0 + half), fmt(PHONE_W - OUTLINE),
           fmt(PHONE_H - OUTLINE), fmt(PHONE_R - half), BODY, SLATE, fmt(OUTLINE)),
    ]
    sx0 = x0 + SCREEN_INSET_X
    sy0 = y0 + SCREEN_INSET_TOP
    sw = PHONE_W - 2 * SCREEN_INSET_X
    sh = PHONE_H - SCREEN_INSET_TOP - SCREEN_INSET_BOTTOM
    out.append('<rect x="%s" y="%s" width="%s" height="%s" rx="%s" fill="%s"/>'
               % (fmt(sx0), fmt(sy0), fmt(sw), fmt(sh), fmt(SCREEN_R), SCREEN))
    # speaker slot in the top bezel, home bar in the bottom one
    out.append('<rect x="%s" y="%s" width="28" height="6" rx="3" fill="%s"/>'
               % (fmt(CX - 14), fmt(y0 + SCREEN_INSET_TOP / 2 - 1), SLATE))
    out.append('<rect x="%s" y="%s" width="32" height="6" rx="3" fill="%s"/>'
               % (fmt(CX - 16), fmt(y0 + PHONE_H - SCREEN_INSET_BOTTOM / 2 - 3), SLATE))
    # the note beats once per new wave, smoothly
    beat = 0.5 + 0.5 * math.cos(2 * math.pi * BEATS * t)
    out.append(note(CX, sy0 + sh * 0.40, 1.0 + 0.08 * beat))
    out.append(bars(t, sx0 + 16, sx0 + sw - 16, sy0 + sh - 16))
    return out


def frame_svg(index):
    t = index / FRAMES
    body = ['<rect width="%d" height="%d" fill="%s"/>' % (WIDTH, HEIGHT, BACKGROUND)]
    body.append('<ellipse cx="%s" cy="%s" rx="58" ry="7" fill="%s"/>'
                % (fmt(CX), fmt(CY + PHONE_H / 2 + 20), SHADOW))
    body += waves(t)
    body += phone(t)
    return ('<svg xmlns="http://www.w3.org/2000/svg" width="%d" height="%d" '
            'viewBox="0 0 %d %d">\n%s\n</svg>\n'
            % (WIDTH, HEIGHT, WIDTH, HEIGHT, "\n".join(body)))


def ffmpeg(*args):
    cmd = ["ffmpeg", "-nostdin", "-hide_banner", "-v", "error", "-y"] + list(args)
    subprocess.run(cmd, check=True)


def main():
    here = os.path.dirname(os.path.abspath(__file__))
    out = os.path.abspath(sys.argv[1]) if len(sys.argv) > 1 else here
    os.makedirs(out, exist_ok=True)
    if shutil.which("ffmpeg") is None:
        sys.exit("make_hello.py: ffmpeg is not on the PATH")

    tmp = tempfile.mkdtemp(prefix="tonewright-hello-")
    try:
        for i in range(FRAMES):
            with open(os.path.join(tmp, "f%03d.svg" % i), "w", encoding="utf-8") as f:
                f.write(frame_svg(i))
        # Rasterise each frame on its own: the SVG decoder sizes the
        # picture from the file, and the PNGs are easy to look at.
        for i in range(FRAMES):
            ffmpeg("-i", os.path.join(tmp, "f%03d.svg" % i),
                   "-pix_fmt", "rgb24", os.path.join(tmp, "f%03d.png" % i))

        # One palette for the whole loop, with no slot kept for transparency;
        # no dithering, so flat areas stay flat and the GIF compresses well.
        ffmpeg("-framerate", "1000/%d" % DELAY_MS,
               "-i", os.path.join(tmp, "f%03d.png"),
               "-filter_complex",
               "[0]split[a][b];"
               "[a]palettegen=max_colors=%d:reserve_transparent=0:stats_mode=full[p];"
               "[b][p]paletteuse=dither=none" % COLOURS,
               # Frames after the first only cover the rectangle that
               # changed, but never through transparent pixels: the GIF
               # must not have any.
               "-gifflags", "+offsetting-transdiff",
               "-loop", "0", "-f", "gif", os.path.join(out, "hello.gif"))

        ffmpeg("-i", os.path.join(tmp, "f%03d.png" % STILL_FRAME),
               "-pix_fmt", "rgb24", "-compression_level", "9",
               "-fflags", "+bitexact", "-flags", "+bitexact",
               os.path.join(out, "hello.png"))
    finally:
        shutil.rmtree(tmp, ignore_errors=True)

    for name in ("hello.gif", "hello.png"):
        path = os.path.join(out, name)
        print("%s: %d bytes" % (path, os.path.getsize(path)))


if __name__ == "__main__":
    main()
