#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Runs a GUI test on a real X server with a window manager (see scripts/x-session.sh).
# Usage: under-window-manager.sh TEST_BINARY [ARGUMENTS...]
exec "$(dirname "$0")/../../scripts/x-session.sh" env QT_QPA_PLATFORM=xcb "$@"
