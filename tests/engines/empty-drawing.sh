# SPDX-License-Identifier: Apache-2.0
# A drawing batch program that makes an empty drawing (BASEe.dgn) from the script BASEe.sif;
# run as /bin/sh empty-drawing.sh SCRIPT.
: > "${1%.sif}.dgn"
