#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Runs a command on a private X server (Xvfb, 1366 x 768, the smallest screen
# Tarnwick is made for) with the openbox window manager, so windows get real
# frames and title bars; ends both afterwards. Exits 77 when a tool is missing.
# Usage: scripts/x-session.sh COMMAND [ARGUMENTS...]
set -uo pipefail
for tool in Xvfb openbox xprop; do
  command -v "$tool" >/dev/null || { echo "$tool is not installed (bash scripts/setup.sh installs it)"; exit 77; }
done
work=$(mktemp -d)
trap 'kill "${wm:-}" "${xvfb:-}" 2>/dev/null; rm -rf "$work"' EXIT
Xvfb -displayfd 3 -screen 0 1366x768x24 -nolisten tcp 3>"$work/display" 2>/dev/null &
xvfb=$!
for _ in $(seq 100); do [ -s "$work/display" ] && break; sleep 0.05; done
[ -s "$work/display" ] || { echo "Xvfb did not start"; exit 1; }
export DISPLAY=":$(head -n 1 "$work/display")"
openbox --sm-disable >/dev/null 2>&1 &
wm=$!
# The window manager is ready once it has named itself on the root window.
for _ in $(seq 100); do xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q 'window id' && break; sleep 0.05; done
"$@"
