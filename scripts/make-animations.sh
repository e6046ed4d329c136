#!/usr/bin/env bash
# Draws the compiled-in animations:
#   progress.gif  the busy spinner of the progress pane: twelve dots turning
#                 (ffmpeg command line, geq filter, below)
#   hello.gif     the welcome pane: a phone playing a tune, sound waves
#                 rippling out of both sides; 480x320, shown at 2x
#   hello.png     the welcome pane's still picture (one frame of the above),
#                 also the progress pane's fallback when GIF cannot be read
# The two welcome pictures are drawn as SVG by
# resources/animations/make_hello.py, which ffmpeg (built with librsvg)
# rasterises; edit that script to change them.
# Needs: ffmpeg with librsvg, python3.
# Usage: scripts/make-animations.sh [output directory]
set -euo pipefail
out=${1:-"$(dirname "$0")/../resources/animations"}
mkdir -p "$out"
ff() { ffmpeg -nostdin -v error -y "$@"; }

# --- progress spinner: 96x96, 12 frames of 80 ms -------------------------
# Dot k sits at angle k*30 degrees on a circle of radius 36; the head dot of
# frame N is k = N, the ones behind it shrink and fade towards a light tint.
S=96 R=36
dot="st(0,mod(round(atan2(Y-47.5,X-47.5)/(PI/6))+12,12));\
st(1,hypot(X-47.5-$R*cos(ld(0)*PI/6),Y-47.5-$R*sin(ld(0)*PI/6)));\
st(2,mod(N-ld(0)+120,12)/11)"
cov="clip(6.5-3*ld(2)+0.5-ld(1),0,1)"
ff -f lavfi -i "color=c=black@0:s=${S}x${S}:r=12.5:d=0.96,format=rgba" -filter_complex \
  "[0]geq=r='$dot;50+(227-50)*ld(2)':g='$dot;160+(238-160)*ld(2)':b='$dot;251+(248-251)*ld(2)':a='$dot;255*$cov',split[a][b];\
[a]palettegen=reserve_transparent=1:stats_mode=full[p];[b][p]paletteuse=alpha_threshold=128:dither=none" \
  -loop 0 "$out/progress.gif"

# --- welcome animation and still picture ---------------------------------
python3 "$(dirname "$0")/../resources/animations/make_hello.py" "$out"
ls -l "$out"
