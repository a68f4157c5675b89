#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Installs what Tarnwick needs on Debian 12 (when missing), then configures and builds.
# Usage: scripts/setup.sh [BUILD_DIR] [extra cmake arguments...]
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
shift || true

packages=(cmake g++ make qt6-base-dev qt6-svg-dev qt6-image-formats-plugins libgtest-dev libgmock-dev
          libbenchmark-dev xvfb xauth xdg-utils poppler-utils clang libclang-rt-14-dev gdal-bin
          fonts-dejavu-core libgdal-dev shared-mime-info desktop-file-utils appstream file dpkg-dev lintian
          openbox x11-utils xdotool imagemagick)
missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
  echo "Installing: ${missing[*]}"
  sudo_cmd=""
  [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
  export DEBIAN_FRONTEND=noninteractive
  $sudo_cmd apt-get update -qq
  $sudo_cmd apt-get install -y -qq --no-install-recommends "${missing[@]}"
fi

cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo "$@" >/dev/null
cmake --build "$build" -j"$(nproc)"
