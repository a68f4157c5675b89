#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the whole project once more under AddressSanitizer and
# UndefinedBehaviorSanitizer and runs every test there.
set -euo pipefail
cd "$(dirname "$0")/.."
build=build-sanitize
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=Debug -DTARNWICK_SANITIZE=ON -DTARNWICK_WERROR=ON >/dev/null
cmake --build "$build" -j"$(nproc)"
# A crashing engine must crash its process as it would without the sanitizer.
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1:strict_string_checks=1:handle_segv=0"
export LSAN_OPTIONS="suppressions=$PWD/tests/lsan.supp:print_suppressions=0"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
cd "$build"
ctest --output-on-failure -j"$(nproc)"
