#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Unsaved work put aside by the legacy roads that discard it, from the
# headless front end: the replay puts it aside and notes it on standard
# error, `tarnwick recover` lists the copies and writes one back as a
# project, byte for byte what a save of the same work writes.
# Usage: put-aside.sh TARNWICK PROGRAM_DIR SAMPLES_DIR WORK_DIR
set -uo pipefail
source "$(dirname "$0")/cli-cases.sh"
tarnwick=$1 program_dir=$2 samples=$3 work=$4
fresh_work "$work"
cp "$samples/twelve-beams.ebnt" "$samples/intermediate.ebnt" .
aside=$work/data/Norvale/Tarnwick/put-aside

# The same edits, then a road that discards them; a twin script saves them instead.
edits='file twelve-beams.ebnt
click mnuOpen
type txtProjectInfo(0) " REVISED"
type txtCapWidth 3.5
leave txtCapWidth
paste-bents "42\t\t\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t301.5\t302\t302\t302\t302"'

run recover --list
[ "$rc" = 0 ] && [ -z "$out" ] || fail "recover --list with nothing put aside: exit $rc, printed $out"

printf '%s\nfile intermediate.ebnt\nclick mnuOpen\nshow txtProjectInfo(0)\n' "$edits" >open.txt
run replay open.txt
[ "$rc" = 0 ] || fail "replay of Open: exit $rc ($err)"
grep -qE '^tarnwick: note: Unsaved changes to twelve-beams\.ebnt \([0-9]{2}:[0-9]{2}\) were put aside$' err.txt ||
  fail "Open's note on standard error: $err"
# The legacy lines stay as they were: no box was added.
[ "$(grep -c '^message' out.txt)" = 0 ] || fail "Open printed a box: $out"
[ "$(stat -c %a "$aside")" = 700 ] || fail "the folder is $(stat -c %a "$aside")"
for f in "$aside"/*; do [ "$(stat -c %a "$f")" = 600 ] || fail "$f is $(stat -c %a "$f")"; done

printf '%s\nanswer Yes\nclick mnuExit\n' "$edits" >exit.txt
run replay exit.txt
grep -q '^tarnwick: note: Unsaved changes to twelve-beams.ebnt (.*) were put aside$' err.txt ||
  fail "Exit's note: $err"
tail -n 1 out.txt | grep -qx 'window close frmMain' || fail "Exit did not end the form: $out"

run recover --list
[ "$rc" = 0 ] || fail "recover --list: exit $rc"
[ "$(wc -l <out.txt)" = 2 ] || fail "two copies expected: $out"
IFS=$'\t' read -r n when name path bents <out.txt
[ "$n" = 1 ] && [ "$name" = twelve-beams.ebnt ] && [ "$path" = "$work/twelve-beams.ebnt" ] &&
  [ "$bents" = "7 bents" ] && [[ "$when" =~ ^[0-9]{4}-[0-9]{2}-[0-9]{2}\ [0-9]{2}:[0-9]{2}$ ]] ||
  fail "the newest copy's line: $(head -n 1 out.txt)"

run recover 1 --output recovered.ebnt
[ "$rc" = 0 ] || fail "recover 1 --output: exit $rc ($err)"
# The same work saved: what the recovered file must hold.
printf '%s\nanswer Yes\nclick mnuSave\n' "$edits" >save.txt
cp twelve-beams.ebnt pristine.ebnt
run replay save.txt
cmp -s recovered.ebnt twelve-beams.ebnt || fail "the recovered project differs from a save of the same work"
cp pristine.ebnt twelve-beams.ebnt

run recover 3 --output none.ebnt
[ "$rc" = 1 ] && [ ! -e none.ebnt ] && [[ "$err" == *"no put-aside copy 3"*"nothing was written"* ]] ||
  fail "recover of a copy not there: exit $rc, $err"
run recover one --output none.ebnt
[ "$rc" = 2 ] || fail "recover with no number: exit $rc"

# A copy that cannot be kept never stops the road.
chmod 000 "$aside"
if [ "$(id -u)" = 0 ]; then
  chmod 700 "$aside"
  mv "$aside" "$aside.moved" && : >"$aside"
fi
printf '%s\nanswer Yes\nclick mnuNew\nshow txtProjectInfo(0)\n' "$edits" >new.txt
run replay new.txt
grep -q '^tarnwick: note: Unsaved changes to twelve-beams.ebnt could not be put aside: ' err.txt ||
  fail "a folder that takes no copy: $err"
tail -n 1 out.txt | grep -qx 'txtProjectInfo(0) = ""' || fail "New did not clear the form: $out"
chmod 700 "$aside" 2>/dev/null

[ "$failures" = 0 ] || exit 1
echo "passed"
