#!/usr/bin/env python3
"""Draws the play-cursor marker of the waveform editor into drag.png.

The marker is 11 pixels wide so that its middle column sits exactly on the
play position: a rounded orange head with a downward point in the ruler band,
and a one-pixel line down through the wave. Antialiased by 8x8 supersampling;
standard library only. Run: python3 make_drag.py [output.png] (by default
drag.png beside this script).
"""

import os
import struct
import sys
import zlib

WIDTH = 11
HEIGHT = 2048          # taller than any editor; the painter clips it
HEAD_BOTTOM = 9.0      # end of the rounded part of the head
TIP = 14.5             # y of the point
RADIUS = 2.5
FILL = (236, 88, 36)
OUTLINE = (168, 52, 18)
LINE = (236, 88, 36, 235)
SUB = 8


def in_head(x, y):
    """Rounded box from (0.5, 0) to (10.5, HEAD_BOTTOM) plus the point."""
    left, right, top = 0.5, WIDTH - 0.5, 0.0
    if top <= y <= HEAD_BOTTOM and left <= x <= right:
        cx = min(max(x, left + RADIUS), right - RADIUS)
        cy = max(y, top + RADIUS)
        if y < top + RADIUS and (x < left + RADIUS or x > right - RADIUS):
            return (x - cx) ** 2 + (y - cy) ** 2 <= RADIUS ** 2
        return True
    if HEAD_BOTTOM < y <= TIP:
        half = (right - left) / 2 * (TIP - y) / (TIP - HEAD_BOTTOM)
        return abs(x - WIDTH / 2) <= half
    return False


def in_core(x, y):
    """Inside the head by at least one pixel in every direction."""
    return all(in_head(x + dx, y + dy)
               for dx in (-1.0, 0.0, 1.0) for dy in (-1.0, 0.0, 1.0))


def head_pixel(px, py):
    r = g = b = a = 0.0
    for sy in range(SUB):
        for sx in range(SUB):
            x = px + (sx + 0.5) / SUB
            y = py + (sy + 0.5) / SUB
            if not in_head(x, y):
                continue
            c = FILL if in_core(x, y) else OUTLINE
            r += c[0]
            g += c[1]
            b += c[2]
            a += 1.0
    if a == 0:
        return (0, 0, 0, 0)
    n = SUB * SUB
    return (round(r / a), round(g / a), round(b / a), round(255 * a / n))


def over(top, below):
    """Straight-alpha `top` composited over `below`."""
    ta, ba = top[3] / 255, below[3] / 255
    a = ta + ba * (1 - ta)
    if a == 0:
        return (0, 0, 0, 0)
    rgb = [round((top[i] * ta + below[i] * ba * (1 - ta)) / a) for i in range(3)]
    return (rgb[0], rgb[1], rgb[2], round(255 * a))


def pixels():
    rows = []
    head_rows = int(TIP) + 1
    for py in range(HEIGHT):
        row = []
        for px in range(WIDTH):
            if py < head_rows:
                p = head_pixel(px, py)
                if px == WIDTH // 2 and py >= HEAD_BOTTOM:
                    p = over(p, LINE)
            else:
                p = LINE if px == WIDTH // 2 else (0, 0, 0, 0)
            row.append(p)
        rows.append(row)
    return rows


def write_png(path, rows):
    raw = b"".join(b"\x00" + b"".join(struct.pack("4B", *p) for p in row) for row in rows)

    def chunk(kind, data):
        body = kind + data
        return struct.pack(">I", len(data)) + body + struct.pack(">I", zlib.crc32(body))

    header = struct.pack(">IIBBBBB", len(rows[0]), len(rows), 8, 6, 0, 0, 0)
    with open(path, "wb") as f:
        f.write(b"\x89PNG\r\n\x1a\n")
        f.write(chunk(b"IHDR", header))
        f.write(chunk(b"IDAT", zlib.compress(raw, 9)))
        f.write(chunk(b"IEND", b""))


if __name__ == "__main__":
    default = os.path.join(os.path.dirname(os.path.abspath(__file__)), "drag.png")
    write_png(sys.argv[1] if len(sys.argv) > 1 else default, pixels())
