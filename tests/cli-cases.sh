# SPDX-License-Identifier: Apache-2.0
# What the command-line test scripts share, sourced by them: a count of
# failures, and one run of tarnwick (needs $tarnwick and $program_dir).
failures=0

fail() {
  echo "FAILED: $*"
  failures=$((failures + 1))
}

# An empty work folder with settings and data folders of its own, made the
# current folder: a case never reads or writes the user's.
fresh_work() { # WORK
  rm -rf "$1"
  mkdir -p "$1/xdg" "$1/data"
  export XDG_CONFIG_HOME=$1/xdg XDG_DATA_HOME=$1/data QT_QPA_PLATFORM=offscreen
  cd "$1" || exit 1
}

# Sets rc, out and err.
run() {
  rc=0
  "$tarnwick" --program-dir "$program_dir" "$@" >out.txt 2>err.txt || rc=$?
  out=$(cat out.txt)
  err=$(cat err.txt)
}
