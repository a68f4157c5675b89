#!/bin/sh
# SPDX-License-Identifier: Apache-2.0
# A drawing batch program that never ends and starts a program of its own;
# both process ids go beside the drawing script (BASE.pids).
sleep 1000 &
echo "$$ $!" > "${1%e.sif}.pids"
wait
