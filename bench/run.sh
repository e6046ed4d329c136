#!/usr/bin/env bash
# Runs every benchmark of the build tree given as $1, one after the other.
set -uo pipefail
build=${1:-build}
export QT_QPA_PLATFORM=offscreen SDL_AUDIODRIVER=dummy SDL_VIDEODRIVER=dummy
for b in "$build"/bench_*; do
  [ -x "$b" ] || continue
  echo "=== $(basename "$b")"
  "$b" || echo "($(basename "$b") exited with $?)"
done
