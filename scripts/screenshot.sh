#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Takes the README's pictures of the real window: a sample project at
# 1366 x 768 under Xvfb with the openbox window manager.
# Usage: scripts/screenshot.sh [BUILD_DIR]   (build first: bash scripts/setup.sh)
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:-build}
exe=$build/bin/tarnwick
[ -x "$exe" ] || { echo "no $exe: build first (bash scripts/setup.sh)"; exit 1; }
if [ -z "${TARNWICK_SCREENSHOT_SESSION:-}" ]; then
  command -v xdotool >/dev/null && command -v import >/dev/null ||
    { echo "xdotool and imagemagick are needed (bash scripts/setup.sh installs them)"; exit 1; }
  TARNWICK_SCREENSHOT_SESSION=1 exec scripts/x-session.sh "$0" "$build"
fi

work=$(mktemp -d)
trap 'kill "${app:-}" 2>/dev/null; rm -rf "$work"' EXIT
cp samples/twelve-beams.ebnt "$work/twelve-beams.ebnt"
XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" XDG_CACHE_HOME="$work/cache" QT_QPA_PLATFORMTHEME= \
  "$exe" "$work/twelve-beams.ebnt" >/dev/null 2>&1 &
app=$!
# The splash first; its OK has the focus.
for _ in $(seq 100); do xdotool search --onlyvisible --name '^Tarnwick$' >/dev/null 2>&1 && break; sleep 0.1; done
xdotool key Return
for _ in $(seq 100); do xdotool search --onlyvisible --name 'twelve-beams' >/dev/null 2>&1 && break; sleep 0.1; done
sleep 1.5
import -window root docs/main-window.png
# The bent table: Ctrl+Page Down steps through the tabs.
xdotool windowactivate --sync "$(xdotool search --onlyvisible --name 'twelve-beams' | head -n 1)"
for _ in 1 2 3 4 5; do xdotool key ctrl+Next; sleep 0.2; done
sleep 1
import -window root docs/bent-table.png
echo "docs/main-window.png and docs/bent-table.png taken"
