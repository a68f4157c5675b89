#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# Templates from the headless front end: the shipped ones are the samples with
# their bent tables emptied, a template saved from the form lists and makes a
# new project byte for byte what a save of the same form without bents
# writes, and one that does not read is refused in the reader's words.
# Usage: templates.sh TARNWICK PROGRAM_DIR SAMPLES_DIR WORK_DIR
set -uo pipefail
source "$(dirname "$0")/cli-cases.sh"
tarnwick=$1 program_dir=$2 samples=$3 work=$4
fresh_work "$work"
cp "$samples"/*.ebnt .
mine=$work/data/Norvale/Tarnwick/templates

# A project as its save writes it with the bent table emptied (Delete All, answered Yes).
emptied() { # SAMPLE OUTPUT
  printf 'file %s\nclick mnuOpen\nanswer Yes\nclick cmdQuantity(5)\nanswer No\nfile %s\nclick mnuSave\n' "$1" "$2" >empty.txt
  run replay empty.txt
  [ "$rc" = 0 ] && [ -s "$2" ] || fail "emptying $1: exit $rc, $err"
}

# One shipped template per bent type, each its sample without bents.
run new --list
[ "$rc" = 0 ] || fail "new --list: exit $rc, $err"
cp out.txt list.txt
for t in 'intermediate	Pile Intermediate Bent' 'end-with-backwall	Pile End Bent with Backwall' \
  'end-without-backwall	Pile End Bent without Backwall'; do
  grep -qxF "$t	$program_dir/templates/${t%%	*}.ebnt" list.txt || fail "new --list lacks $t: $(cat list.txt)"
  name=${t%%	*}
  emptied "$name.ebnt" "$name-emptied.ebnt"
  cmp -s "$name-emptied.ebnt" "$program_dir/templates/$name.ebnt" || fail "the shipped $name is not its sample emptied"
done
[ "$(wc -l <list.txt)" = 3 ] || fail "new --list with no templates of the user's own: $(cat list.txt)"

# Saved from the form, listed first, a new project from it, and the same again through the window's road and Save.
printf 'file end-with-backwall.ebnt\nclick mnuOpen\nsave-as-template county-std\nstatus\n' >save.txt
run replay save.txt
[ "$rc" = 0 ] && [ -f "$mine/county-std.ebnt" ] || fail "save-as-template: exit $rc, $out, $err"
[[ "$out" == *"Template county-std saved as $mine/county-std.ebnt"* ]] || fail "save-as-template said: $out"
emptied end-with-backwall.ebnt bw-emptied.ebnt
cmp -s "$mine/county-std.ebnt" bw-emptied.ebnt || fail "the template is not the form saved without bents"
run new --list
[ "$(head -n 1 out.txt)" = "county-std	Pile End Bent with Backwall	$mine/county-std.ebnt" ] || fail "new --list: $out"
run new --template county-std --output from-template.ebnt
[ "$rc" = 0 ] || fail "new --template: exit $rc, $err"
cmp -s from-template.ebnt bw-emptied.ebnt || fail "new --template did not write the template's project"
printf 'new-from-template county-std\nshow frmMain\nmodified\nfile saved.ebnt\nclick mnuSave\nmodified\n' >new.txt
run replay new.txt
[ "$out" = 'message "Clear Form Confirmation" "Do you want to clear the form and start over?" YesNo none -> Yes
frmMain = "Norvale-Tarnwick"
modified = 1
dialog save "Save As" "Tarnwick Input Files (*.ebnt)|*.ebnt" "ibnt" overwrite=1 -> "'"$work"'/saved.ebnt"
modified = 0' ] || fail "new-from-template: $out"
cmp -s saved.ebnt bw-emptied.ebnt || fail "a project from the template saved is not the template"
# New's No leaves the form as it was.
printf 'file intermediate.ebnt\nclick mnuOpen\nanswer No\nnew-from-template county-std\nshow cboTybent\ncounter\n' >no.txt
run replay no.txt
[[ "$out" == *'-> No'$'\n''cboTybent = "Pile Intermediate Bent"'$'\n''counter = 1' ]] || fail "New answered No: $out"

# Names of one word only; nothing is written for another.
printf 'save-as-template "two words"\nsave-as-template ../escape\n' >badname.txt
run replay badname.txt
[[ "$err" == *"not saved"*"not saved"* ]] || fail "bad template names: $err"
[ "$(ls "$mine")" = county-std.ebnt ] || fail "a bad name wrote a template: $(ls "$mine")"

# A template that does not read: listed as such, refused by the reader before anything is cleared or written.
printf 'NOT A PROJECT\r\n' >"$mine/broken.ebnt"
run new --list
grep -q '^broken	(does not read: ' out.txt || fail "new --list of a broken template: $out"
run new --template broken --output broken-project.ebnt
expect_fail() { [ "$rc" = 1 ] || fail "$1: exit $rc"; }
expect_fail "new --template broken"
[[ "$err" == "$mine/broken.ebnt: "*"; nothing was written" ]] || fail "new --template broken: $err"
[ ! -e broken-project.ebnt ] || fail "a broken template wrote a project"
run new --template nowhere --output nowhere.ebnt
expect_fail "new --template nowhere"
[[ "$err" == *"no template nowhere"*"nothing was written" ]] || fail "new --template nowhere: $err"
printf 'file intermediate.ebnt\nclick mnuOpen\nnew-from-template broken\nshow cboTybent\ncounter\n' >broken.txt
run replay broken.txt
[[ "$out" == *'message "Error" '*'-> OK'$'\n''cboTybent = "Pile Intermediate Bent"'$'\n''counter = 1' ]] ||
  fail "new-from-template broken: $out"
[[ "$out" != *"Clear Form Confirmation"* ]] || fail "a broken template asked New's question: $out"
run new --template
[ "$rc" = 2 ] || fail "new --template without a name: exit $rc"

[ "$failures" = 0 ] || exit 1
echo "all template cases passed"
