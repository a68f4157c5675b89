#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Sets everything up, registers Tarnwick with the user's desktop (menu entry,
# icon, .ebnt and .dgn files) and starts it on the sample engine. Without a
# display it says so and runs a sample project headlessly instead.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh build
scripts/register-desktop.sh build/bin/tarnwick || echo "Tarnwick could not be registered with the desktop."
if [ -n "${DISPLAY:-}" ] || [ -n "${WAYLAND_DISPLAY:-}" ]; then
  exec build/bin/tarnwick
fi
echo "No display found: running a sample project headlessly instead of opening the window."
sample=$(ls samples/*.ebnt 2>/dev/null | head -n 1 || true)
if [ -z "$sample" ]; then
  echo "No sample project found; showing what the program offers."
  exec build/bin/tarnwick --help
fi
# Run cuts output names at the first "." of the path: a work folder without one.
work=$(mktemp -d /tmp/tarnwick-sample-XXXXXX)
cp "$sample" "$work/"
echo "Project: $work/$(basename "$sample")"
build/bin/tarnwick run "$work/$(basename "$sample")"
echo "Outputs are in $work"
