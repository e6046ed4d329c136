"""Shared by the image generators under resources/images: writes an SVG
source and renders it to a 1x PNG and its @2x twin with ffmpeg's librsvg
decoder.

Style-sheet images (image:, background-image:, border-image:) are loaded as
pixmaps at their nominal size; an SVG there comes out blurry on a 2x screen.
A PNG with an "@2x" file beside it is picked up by Qt for 2x screens, so
every image the skin uses ships as such a pair, drawn from one SVG.

The colours every generator draws with live here too, so the set stays one
family: slate glyphs, the accent for hover, a light grey for disabled.
"""

import os
import subprocess

ACCENT = "#32a0fb"        # the program's link colour and accent
ACCENT_LIGHT = "#6cc1ff"  # top of accent gradients, hover faces
ACCENT_DEEP = "#1b78d4"   # edges and pressed faces
SLATE = "#4a5563"         # glyphs at rest
INK = "#1f2937"           # text
MUTED = "#8a94a3"         # secondary glyphs (search field)
DISABLED = "#b8c0cc"      # glyphs of disabled controls
GROUND = "#f4f6f9"        # the content panes' ground


def render(svg, png, width, height):
    """Rasterises svg into png at width x height device pixels."""
    # The librsvg decoder hands out premultiplied pixels; PNG wants straight
    # alpha, or every soft edge comes out too dark.
    subprocess.run(["ffmpeg", "-nostdin", "-v", "error", "-y", "-width", str(width),
                    "-height", str(height), "-i", svg, "-frames:v", "1",
                    "-vf", "unpremultiply=inplace=1", "-pix_fmt", "rgba", png],
                   check=True)


def write_svg(folder, name, text):
    path = os.path.join(folder, name + ".svg")
    with open(path, "w", encoding="utf-8") as f:
        f.write(text)
    return path


def write_pair(folder, name, text, width, height):
    """Writes NAME.svg and renders NAME.png (width x height) and NAME@2x.png."""
    svg = write_svg(folder, name, text)
    render(svg, os.path.join(folder, name + ".png"), width, height)
    render(svg, os.path.join(folder, name + "@2x.png"), 2 * width, 2 * height)
    return svg
