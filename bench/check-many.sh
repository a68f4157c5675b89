#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# `tarnwick check` over many input files against `wc -l` over the same files:
# the whole processes, in turn. The files are the samples and the recorded
# replays' projects, copied round until there are N of them (1,000 by default).
# Usage: bench/check-many.sh TARNWICK [N] [RUNS]
set -euo pipefail
tarnwick=${1:?usage: check-many.sh TARNWICK [N] [RUNS]}
count=${2:-1000}
runs=${3:-5}
here=$(cd "$(dirname "$0")/.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
sources=()
for f in "$here"/samples/*.ebnt "$here"/tests/replay/*/files/*.ebnt; do
  [[ -f $f ]] && sources+=("$f") # a replay keeps a folder under that name, too
done
for ((i = 0; i < count; i++)); do
  cp "${sources[i % ${#sources[@]}]}" "$folder/$(printf 'bent-%04d.ebnt' "$i")"
done
files=("$folder"/*.ebnt)
farm-bench -n "$runs" --timeout 600 --vs "wc -l ${files[*]}" -- "$tarnwick" check "${files[@]}"
