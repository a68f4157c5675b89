#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Builds the fuzz targets with clang and runs each for a bounded time.
# Usage: scripts/fuzz.sh [SECONDS_EACH]
set -euo pipefail
cd "$(dirname "$0")/.."
seconds=${1:-30}
if ! command -v clang++ >/dev/null; then
  echo "clang++ not found: fuzzing skipped"
  exit 0
fi
build=build-fuzz
CXX=clang++ cmake -S . -B "$build" -DCMAKE_BUILD_TYPE=RelWithDebInfo -DBUILD_TESTING=OFF -DTARNWICK_FUZZ=ON -DTARNWICK_WERROR=ON \
  -DCMAKE_CXX_FLAGS="-fsanitize=fuzzer-no-link,address,undefined" >/dev/null
cmake --build "$build" -j"$(nproc)" --target fuzz_reader fuzz_replay fuzz_dgn_scene
corpus=$(mktemp -d)
mkdir -p "$corpus/reader" "$corpus/replay" "$corpus/dgn"
cp samples/*.ebnt "$corpus/reader/"
for s in tests/replay/*/script.txt; do cp "$s" "$corpus/replay/$(basename "$(dirname "$s")").txt"; done
export ASAN_OPTIONS=detect_leaks=0
# libFuzzer talks a lot: keep its log, show its last lines.
fuzz() {
  local name=$1; shift
  local log="$build/$name.log"
  if "$build/bin/$name" -max_total_time="$seconds" -timeout=10 "$@" >"$log" 2>&1; then
    echo "$name: $(grep -E '^Done' "$log" | tail -n 1)"
  else
    tail -n 40 "$log"
    echo "$name: found a failure (crash input saved beside the build)"
    return 1
  fi
}
fuzz fuzz_reader -max_len=65536 -artifact_prefix="$build/" "$corpus/reader"
fuzz fuzz_replay -max_len=4096 -artifact_prefix="$build/" "$corpus/replay"
fuzz fuzz_dgn_scene -max_len=8192 -artifact_prefix="$build/" "$corpus/dgn"
rm -rf "$corpus"
