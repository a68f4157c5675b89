#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# A drawing batch program that starts a program in a session of its own,
# out of its process group, then never ends ("wait") or ends at once
# ("leave"); both process ids go beside the drawing script (BASE.pids).
setsid sleep 1000 &
echo "$$ $!" > "${2%e.sif}.pids"
[ "$1" = wait ] && wait
exit 0
