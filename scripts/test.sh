#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Sets everything up and runs every test.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/setup.sh build -DTARNWICK_WERROR=ON
cd build
ctest --output-on-failure -j"$(nproc)"
