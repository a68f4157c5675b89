# SPDX-License-Identifier: Apache-2.0
# What the command-line test scripts share, sourced by them: a count of
# failures, and one run of tarnwick (needs $tarnwick and $program_dir).
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# Sets rc, out and err.
run() {
  rc=0
  "$tarnwick" --program-dir "$program_dir" "$@" >out.txt 2>err.txt || rc=$?
  out=$(cat out.txt)
  err=$(cat err.txt)
}
