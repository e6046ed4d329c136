#!/usr/bin/env bash
# Runs every fuzz target of the build tree $1 for $2 seconds each, over a
# scratch copy of its checked-in seed corpus (new inputs stay in the build
# tree). Prints each target's executions and coverage; fails on the first
# crash, leak, timeout or sanitizer report, leaving the input that caused it
# in the build tree.
set -euo pipefail
build=$1
seconds=${2:-30}
src=$(cd "$(dirname "$0")" && pwd)
status=0
for target in "$build"/fuzz_*; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  seeds="$src/corpus/${name#fuzz_}"
  work="$build/corpus/${name#fuzz_}"
  mkdir -p "$work" "$build/crashes"
  echo "=== $name: ${seconds}s"
  if ! "$target" -max_total_time="$seconds" -timeout=20 -rss_limit_mb=2048 \
       -print_final_stats=1 -artifact_prefix="$build/crashes/$name-" \
       "$work" "$seeds" > "$build/$name.log" 2>&1; then
    tail -n 60 "$build/$name.log"
    echo "!!! $name failed; the input is in $build/crashes/"
    status=1
    continue
  fi
  grep -E '^#[0-9]+ +DONE|stat::number_of_executed_units|stat::peak_rss_mb' "$build/$name.log" || true
done
exit $status
