#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# What the drawing commands do at the edges of the machine: a full disk, inputs
# that never end, a memory limit. Each ends in exit 1 and one line that names
# the file, never in an abort, a hang or a file left half written.
# Usage: drawing-limits.sh full-disk|endless-inputs|memory-limit TARNWICK PROGRAM_DIR SAMPLE WORK_DIR
# Exit 77: the case cannot be set up here (the ctest run shows it as skipped).
set -uo pipefail
here=$(cd "$(dirname "$0")" && pwd)
mode=$1 tarnwick=$2 program_dir=$3 sample=$4 work=$5
rm -rf "$work"
mkdir -p "$work/runtime"
chmod 700 "$work/runtime"
export XDG_RUNTIME_DIR=$work/runtime XDG_CONFIG_HOME=$work/xdg QT_QPA_PLATFORM=offscreen
# Fonts with a cache of this run's own: fontconfig starved of memory writes
# empty caches, and run as root it would write them over the machine's.
mkdir -p "$work/fonts-cache"
cat >"$work/fonts.conf" <<EOF
<?xml version="1.0"?>
<fontconfig><dir>/usr/share/fonts</dir><cachedir>$work/fonts-cache</cachedir></fontconfig>
EOF
export FONTCONFIG_FILE=$work/fonts.conf
cd "$work" || exit 1
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# Runs tarnwick with a bound on time and memory, so that a fault shows as a
# failure instead of taking the machine: sets rc and err (its standard error).
run() {
  local limit=${LIMIT:-4000000}
  rc=0
  if [ "${SANITIZED:-OFF}" = ON ]; then
    # The sanitizers reserve more address space than any limit leaves: a time bound only.
    (exec timeout 60 "$tarnwick" --program-dir "$program_dir" "$@") >out.txt 2>err.txt || rc=$?
  else
    (ulimit -v "$limit" && exec timeout 60 "$tarnwick" --program-dir "$program_dir" "$@") >out.txt 2>err.txt || rc=$?
  fi
  # What libraries say of themselves when memory runs out as they load is not ours.
  err=$(grep -v -e '^QStandardPaths' -e '^Fontconfig' -e '^Error in GnuTLS' -e '^qt.gui.imageio: libpng' -e '^libpng' err.txt)
}

# Exit 1 and one line that starts with "tarnwick:" and holds $1.
refused() {
  local what=$1
  shift
  if [ "$rc" != 1 ]; then
    fail "$*: exit $rc, expected 1 ($err)"
  elif [ "$(printf '%s\n' "$err" | wc -l)" != 1 ] || [[ "$err" != tarnwick:* ]] || [[ "$err" != *"$what"* ]]; then
    fail "$*: expected one line with \"$what\", got: $err"
  fi
}

# A small drawing written by the sample batch program.
drawing() {
  printf '* A SCRIPT\r\nSYMBOLOGY 1 1 2 0\r\nSHAPE 4 0 0 10 0 10 3 0 3\r\nSYMBOLOGY 10 0 0 0\r\nTEXT 1 -6 0.5 0 BENT\r\n' >se.sif
  "$program_dir/tarnwick-dgnbatch" se.sif >/dev/null 2>&1 && [ -s se.dgn ] || {
    echo "the sample batch program wrote no drawing"
    exit 1
  }
}

case $mode in
full-disk)
  # A file system of one page, filled: every write ends in "no space left".
  drawing
  mkdir -p full
  # shellcheck disable=SC2016
  unshare -rm sh -c 'mount -t tmpfs -o size=4k tmpfs "$1" && head -c 8192 /dev/zero >"$1/filler" 2>/dev/null; test -s "$1/filler"' \
    sh "$work/full" 2>/dev/null || {
    echo "skipped: no tmpfs can be mounted here (unshare -rm is not allowed)"
    exit 77
  }
  for suffix in svg pdf png; do
    for command in "draw $sample" "view se.dgn --export"; do
      out=$work/full/out.$suffix
      rc=0
      # shellcheck disable=SC2086
      unshare -rm sh -c 'd=$1; mount -t tmpfs -o size=4k tmpfs "$d" && head -c 8192 /dev/zero >"$d/filler" 2>/dev/null
                         shift; "$@" >/dev/null 2>"$0"; rc=$?; ls -A "$d" | grep -v "^filler$" >"$0.left"; exit $rc' \
        "$work/err.txt" "$work/full" "$tarnwick" --program-dir "$program_dir" $command "$out" || rc=$?
      # What libraries say of themselves when memory runs out as they load is not ours.
  err=$(grep -v -e '^QStandardPaths' -e '^Fontconfig' -e '^Error in GnuTLS' -e '^qt.gui.imageio: libpng' -e '^libpng' err.txt)
      refused "Disk full" "$command out.$suffix"
      [ -s err.txt.left ] && fail "$command out.$suffix left $(cat err.txt.left) behind"
    done
  done
  ;;
endless-inputs)
  run view /dev/zero --export out.png
  refused "/dev/zero is a character device" "view /dev/zero"
  mkfifo pipe.dgn
  run view pipe.dgn --export out.png
  refused "pipe.dgn is a pipe" "view of a pipe"
  mkdir folder.dgn
  run view folder.dgn --export out.png
  refused "folder.dgn is a folder" "view of a folder"
  truncate -s 3G sparse.dgn
  LIMIT=1000000 run view sparse.dgn --export out.png
  refused "sparse.dgn is larger than a drawing can be" "view of a 3 GB sparse file"
  [ -e out.png ] && fail "a refused drawing left out.png"
  ;;
memory-limit)
  [ "${SANITIZED:-OFF}" = ON ] && {
    echo "skipped: the sanitizers reserve more address space than any limit leaves"
    exit 77
  }
  # A drawing of 60,000 lines: the least limit that writes its picture, then
  # every limit in the 48 MiB below it (reading, the reader's libraries,
  # painting), in steps of 2 MiB.
  bash "$here/../bench/make-big-drawing.sh" big.dgn 60000 || exit 1
  high=1000000
  LIMIT=$high run view big.dgn --export out.png
  [ "$rc" = 0 ] || {
    echo "the drawing cannot be written even with $high KiB: $err"
    exit 1
  }
  low=0
  while [ $((high - low)) -gt 4096 ]; do
    mid=$(((low + high) / 2))
    LIMIT=$mid run view big.dgn --export out.png
    if [ "$rc" = 0 ]; then high=$mid; else low=$mid; fi
  done
  for ((limit = high - 48 * 1024; limit < high; limit += 2048)); do
    rm -f out.png
    LIMIT=$limit run view big.dgn --export out.png
    if [ "$rc" = 0 ]; then
      [ -s out.png ] || fail "exit 0 under $limit KiB and no picture"
    else
      refused "" "view under a limit of $limit KiB"
      [ -e out.png ] && fail "a failure under $limit KiB left out.png"
    fi
  done
  ;;
*)
  echo "unknown case $mode"
  exit 2
  ;;
esac
[ "$failures" = 0 ] || exit 1
echo "passed"
