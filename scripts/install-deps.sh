#!/usr/bin/env bash
# Installs every Debian package that building, running, testing and benchmarking
# Tonewright needs. Safe to run again: apt skips what is already there.
set -euo pipefail

PACKAGES=(
  build-essential cmake pkg-config git
  qt6-base-dev qt6-base-dev-tools qt6-tools-dev qt6-tools-dev-tools qt6-l10n-tools
  qt6-svg-dev qt6-translations-l10n qt6-image-formats-plugins libqt6svg6
  libgl-dev libvulkan-dev libxkbcommon-dev
  libsdl2-dev
  libavformat-dev libavcodec-dev libavutil-dev libswresample-dev libswscale-dev ffmpeg
  libtag1-dev
  libebur128-dev
  libcurl4-openssl-dev
  xvfb xauth
  fonts-dejavu-core fonts-wqy-microhei
  hyperfine time
  fluidsynth timgm6mb-soundfont
  python3-pyatspi at-spi2-core dbus-daemon
  clang clang-format libclang-rt-14-dev
  frozen-bubble-data
  desktop-file-utils appstream dpkg-dev file
)

SUDO=()
if [ "$(id -u)" -ne 0 ]; then
  SUDO=(sudo -E)
fi

missing=()
for p in "${PACKAGES[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ "${#missing[@]}" -eq 0 ]; then
  echo "install-deps: all ${#PACKAGES[@]} packages present"
  exit 0
fi

echo "install-deps: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${SUDO[@]}" apt-get update -q
"${SUDO[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
