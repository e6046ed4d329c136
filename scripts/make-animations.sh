#!/usr/bin/env bash
# Draws the compiled-in animations with the ffmpeg command line (geq filter):
#   progress.gif  the busy spinner of the progress pane: twelve dots turning
#   hello.gif     the welcome pane: a phone whose sound waves come one by one
#   hello.png     the welcome pane's still picture (all waves), also the
#                 progress pane's fallback when GIF cannot be read
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

# --- welcome picture: 240x160 --------------------------------------------
# A phone (rounded outline, speaker slot and button, grey #626567) and three
# sound arcs (blue #32A0FB) to its right; arc i shows when i < the count.
W=240 H=160
phone="st(0,hypot(max(abs(X-82)-33+12,0),max(abs(Y-80)-62+12,0))-12);\
st(1,clip(3-abs(ld(0)),0,1));\
st(1,max(ld(1),clip(5-hypot(X-82,Y-126),0,1)));\
st(1,max(ld(1),clip(2.5-hypot(max(abs(X-82)-8,0),Y-34),0,1)))"
arcs() {
  # $1: how many arcs are shown (an expression)
  echo "st(2,hypot(X-122,Y-80));st(3,lt(abs(atan2(Y-80,X-122)),0.75));\
st(4,0);st(5,0);\
st(4,max(ld(4),lt(0,$1)*ld(3)*clip(4+0.5-abs(ld(2)-22),0,1)));\
st(4,max(ld(4),lt(1,$1)*ld(3)*clip(4+0.5-abs(ld(2)-44),0,1)));\
st(4,max(ld(4),lt(2,$1)*ld(3)*clip(4+0.5-abs(ld(2)-66),0,1)))"
}
picture() {
  # $1: arcs expression; the phone wins where both draw
  local a; a=$(arcs "$1")
  echo "r='$phone;$a;if(gte(ld(1),ld(4)),98,50)':g='$phone;$a;if(gte(ld(1),ld(4)),101,160)':\
b='$phone;$a;if(gte(ld(1),ld(4)),103,251)':a='$phone;$a;255*max(ld(1),ld(4))'"
}
ff -f lavfi -i "color=c=black@0:s=${W}x${H}:r=1:d=1,format=rgba" \
  -vf "geq=$(picture 3)" -frames:v 1 -pix_fmt rgba -compression_level 9 "$out/hello.png"
# Four frames of 400 ms: no wave, one, two, three.
ff -f lavfi -i "color=c=black@0:s=${W}x${H}:r=2.5:d=1.6,format=rgba" -filter_complex \
  "[0]geq=$(picture 'mod(N,4)'),split[a][b];\
[a]palettegen=reserve_transparent=1:stats_mode=full[p];[b][p]paletteuse=alpha_threshold=128:dither=none" \
  -loop 0 "$out/hello.gif"
ls -l "$out"
