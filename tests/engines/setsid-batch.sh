#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# A drawing batch program that starts a program in a session of its own,
# out of its process group, then never ends ("wait") or ends at once
# ("leave"); both process ids go beside the drawing script (BASE.pids).
# With "-env-i" the program also sheds its environment, in a subshell that
# ends at once, so that it is orphaned and carries nothing of ours.
pids="${2%e.sif}.pids"
case "$1" in
*-env-i) ( env -i setsid sleep 1000 & echo "$$ $!" > "$pids" ) ;;
*)
  setsid sleep 1000 &
  echo "$$ $!" > "$pids"
  ;;
esac
case "$1" in
wait-env-i) sleep 1000 ;;
wait) wait ;;
esac
exit 0
