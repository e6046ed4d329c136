#!/usr/bin/env bash
# Brings resources/translations/Tonewright_<code>.ts up to date with the
# program's texts (lupdate over every source folder). New texts come in
# unfinished: translate them, and the translation test passes again.
set -euo pipefail
cd "$(dirname "$0")/.."
lupdate=${LUPDATE:-/usr/lib/qt6/bin/lupdate}
sources=()
for dir in app core widgets audio editor engine library ui update crash cli; do
  [ -d "$dir" ] && sources+=("$dir")
done
for code in en fr ja de es it nl pt zh; do
  "$lupdate" -silent -locations none -no-obsolete -I . "${sources[@]}" \
    -target-language "$code" -ts "resources/translations/Tonewright_$code.ts"
done
