#!/usr/bin/env bash
# SPDX-License-Identifier: Apache-2.0
# The bent table to and from a spreadsheet (`tarnwick table`) and the
# comparison of two projects (`tarnwick diff`), through the command line.
# Usage: spreadsheet-roads.sh table|diff TARNWICK PROGRAM_DIR SAMPLES_DIR WORK_DIR
set -uo pipefail
source "$(dirname "$0")/cli-cases.sh"
mode=$1 tarnwick=$2 program_dir=$3 samples=$4 work=$5
rm -rf "$work"
mkdir -p "$work/xdg"
export XDG_CONFIG_HOME=$work/xdg QT_QPA_PLATFORM=offscreen
cd "$work" || exit 1
cp "$samples"/*.ebnt .

expect() { # STATUS WHAT...
  local want=$1
  shift
  [ "$rc" = "$want" ] || fail "$*: exit $rc, expected $want (stderr: $err)"
}

crlf() { printf '%s\r\n' "$@"; }

# Standard error of a refusal: the rows' file, line and why, then that nothing was written to OUTPUT.
refused_with() { # OUTPUT TEXT
  [ "$err" = "$2"$'\n'"tarnwick: nothing was written to $1" ] || fail "refused: $err (expected $2)"
}

refused_over() { # ROWS CONTENT MESSAGE
  printf "$2" >"$1"
  rm -f refused.ebnt
  run table new.ebnt --replace "$1" --output refused.ebnt
  expect 1 "$1 pasted over"
  refused_with refused.ebnt "$3"
  [ ! -e refused.ebnt ] || fail "$1 pasted over still wrote refused.ebnt"
}

table_cases() {
  local heading='Bent Number,Bottom Left Cap,Bottom Right Cap,1Step,2Step,3Step,4Step,5Step'

  run table intermediate.ebnt
  expect 0 "table of a sample"
  crlf "$heading" '2,,,101.32,101.45,101.58,101.45,101.32' >want.txt
  cmp -s out.txt want.txt || fail "table intermediate.ebnt printed: $out"

  # A heading row, quoted cells, CR LF and LF lines; typed values are formatted as leaving the field formats them.
  printf '%s\r\n"3",96.5,"96.25",1,2,3,4,5\n4,,,"1.5",2,3,4,5\n' "$heading" >rows.csv
  run table intermediate.ebnt --add rows.csv --output new.ebnt
  expect 0 "rows added"
  run table new.ebnt
  crlf "$heading" '2,,,101.32,101.45,101.58,101.45,101.32' '3,96.50,96.25,1.00,2.00,3.00,4.00,5.00' \
    '4,,,1.50,2.00,3.00,4.00,5.00' >want.txt
  cmp -s out.txt want.txt || fail "the new project's table: $out"
  run check new.ebnt
  [[ "$out" == "new.ebnt: ok (3 bents, 5 beams, Pile Intermediate Bent)" ]] || fail "check of the new project: $out"

  # A spreadsheet's "CSV UTF-8" begins with a byte-order mark, its "Unicode text" is UTF-16 with one: the heading
  # is still the heading.
  { printf '\xef\xbb\xbf'; crlf "$heading" '5,,,1,2,3,4,5'; } >bom.csv
  { printf '\xff\xfe'; printf '%s\r\n' "${heading//,/$'\t'}" $'6\t\t\t1\t2\t3\t4\t5' | iconv -f UTF-8 -t UTF-16LE; } >utf16.txt
  for rows in bom.csv utf16.txt; do
    run table intermediate.ebnt --add "$rows" --output bom.ebnt
    expect 0 "rows of $rows"
    run table bom.ebnt
    [[ "$out" == *$'\r\n'[56]',,,1.00,2.00,3.00,4.00,5.00'* ]] || fail "rows of $rows: $out"
  done

  # Only what typing could enter: a bent number of one or two digits, numbers that fit their field's columns.
  # Anything else is refused by line and column before anything is added, and nothing is written.
  local -a refusals=(
    '12345,,,1,2,3,4,5@@column "Bent Number": "12345" is not a bent number of one or two digits'
    '"7,",,,1,2,3,4,5@@column "Bent Number": "7," is not a bent number of one or two digits'
    "8,\"=cmd|' /C calc'!A0\",1,1,2,3,4,5@@column \"Bottom Left Cap\": \"=cmd|' /C calc'!A0\" is not a number"
    '8,,,1,2,3O6.18,4,5@@column "3Step": "3O6.18" is not a number'
    '8,,,12345678,2,3,4,5@@column "1Step": "12345678" does not fit the field, which holds -999.99 to 9999.99'
    '8,,,1,2,3,4,-1000@@column "5Step": "-1000" does not fit the field, which holds -999.99 to 9999.99'
  )
  for refusal in "${refusals[@]}"; do
    rm -f refused.ebnt
    printf '9,,,1,2,3,4,5\n%s\n' "${refusal%%@@*}" >refused.csv
    run table intermediate.ebnt --add refused.csv --output refused.ebnt
    expect 1 "${refusal#*@@}"
    refused_with refused.ebnt "refused.csv:2: ${refusal#*@@}"
    [ ! -e refused.ebnt ] || fail "a refused row still wrote refused.ebnt"
  done
  # A cell of a megabyte is quoted by its beginning.
  { printf '9,,,1,2,3,4,5\n8,,,1,2,3,4,'; head -c 1100000 /dev/zero | tr '\0' 9; printf '\n'; } >big.csv
  run table intermediate.ebnt --add big.csv --output refused.ebnt
  expect 1 "a cell of a megabyte"
  refused_with refused.ebnt 'big.csv:2: column "5Step": "999999999999999999999999999999999999999…" does not fit the field, which holds -999.99 to 9999.99'
  [ ! -e refused.ebnt ] || fail "a cell of a megabyte still wrote refused.ebnt"
  # The widest that fits goes in whole.
  printf '99,,,9999.99,-999.99,0.005,-.5,1\n' >widest.csv
  run table intermediate.ebnt --add widest.csv --output widest.ebnt
  expect 0 "the widest numbers"
  run table widest.ebnt
  [[ "$out" == *$'\r\n99,,,9999.99,-999.99,0.01,-0.50,1.00\r' ]] || fail "the widest numbers: $out"
  # A heading that is not this table's says so.
  printf 'Bent Number,Bottom Left Cap,Bottom Rigth Cap,1Step,2Step,3Step,4Step,5Step\n9,,,1,2,3,4,5\n' >heading.csv
  run table intermediate.ebnt --add heading.csv --output refused.ebnt
  expect 1 "another heading"
  refused_with refused.ebnt 'heading.csv:1: line 1 is a heading, but not this bent table'"'"'s: column 3 is "Bottom Rigth Cap" where the table has "Bottom Right Cap"'

  # A refused row (a repeated bent number) stops everything; the line counts blank lines and a cell's own line
  # breaks (a line break is no part of a bent number).
  printf '\n5,,,1,2,3,4,5\n\n2,,,1,2,3,4,5\n6,,,1,2,3,4,5\n' >repeat.csv
  run table intermediate.ebnt --add repeat.csv --output refused.ebnt
  expect 1 "a repeated bent"
  refused_with refused.ebnt "repeat.csv:4: You have entered the repeated Bent Number. Please check!"
  printf '5,,,1,2,3,4,5\n"6\n",,,1,2,3,4,5\n' >broken.csv
  run table intermediate.ebnt --add broken.csv --output refused.ebnt
  expect 1 "a line break in a bent number"
  refused_with refused.ebnt 'broken.csv:2: column "Bent Number": "6\x0A" is not a bent number of one or two digits'
  [ ! -e refused.ebnt ] || fail "a refused row still wrote refused.ebnt"

  printf '9,,,1,2,,4,5\n' >missing-step.csv
  run table intermediate.ebnt --add missing-step.csv --output refused.ebnt
  expect 1 "a missing step"
  refused_with refused.ebnt "missing-step.csv:1: Please complete all the step elevation!"

  # Rows that do not fit the table are refused before anything is added, naming the columns.
  printf '9,,,1,2,3,4,5\n10,,,1,2,3\n' >short.csv
  run table intermediate.ebnt --add short.csv --output refused.ebnt
  expect 1 "a short row"
  [[ "$err" == "short.csv:2: Line 2 holds 6 columns, "*"has 8: Bent Number, Bottom Left Cap, "*", 5Step."$'\n'"tarnwick: nothing was written to refused.ebnt" ]] || fail "short row: $err"
  [ ! -e refused.ebnt ] || fail "a short row still wrote refused.ebnt"

  # The revision road: the table out, two bents changed and one added, pasted over.
  run table new.ebnt
  { head -n 2 out.txt; printf '3,,,1.5,2,3,4,5\n'; printf '7,,,7,7,7,7,7\n'; } >revised.csv
  sed -i '2s/101.32,101.45/99.5,99.75/' revised.csv
  run table new.ebnt --replace revised.csv --output revised.ebnt
  expect 0 "pasted over"
  run table revised.ebnt
  crlf "$heading" '2,,,99.50,99.75,101.58,101.45,101.32' '3,,,1.50,2.00,3.00,4.00,5.00' \
    '4,,,1.50,2.00,3.00,4.00,5.00' '7,,,7.00,7.00,7.00,7.00,7.00' >want.txt
  cmp -s out.txt want.txt || fail "the table pasted over: $out"
  run check revised.ebnt
  [[ "$out" == "revised.ebnt: ok (4 bents, 5 beams, Pile Intermediate Bent)" ]] || fail "check pasted over: $out"
  # The same rows added: every bent but one is in the table already, so Add refuses the first.
  run table new.ebnt --add revised.csv --output refused.ebnt
  expect 1 "revised rows added"
  refused_with refused.ebnt "revised.csv:2: You have entered the repeated Bent Number. Please check!"
  # Rows of bents all in the table, added: nothing goes in, --replace is named.
  head -n 3 revised.csv >held.csv
  run table new.ebnt --add held.csv --output refused.ebnt
  expect 1 "held bents added"
  [[ "$err" == "held.csv: Bents 2 and 3 are in the bent table already"*"--replace"*"nothing was written to refused.ebnt" ]] ||
    fail "held bents added: $err"
  # Refused pasted over: a cell that is not a number (before any row goes in), a row whose check fails (its own
  # message on its line), a bent twice. Nothing is written.
  refused_over letter.csv '2,,,1,2,3,4,5\n3,,,1,2,3O6.18,4,5\n' 'letter.csv:2: column "3Step": "3O6.18" is not a number'
  refused_over mixed.csv '2,,,1,2,3,4,5\n8,,,1,2,3,4,5\n3,,,1,2,,4,5\n' "mixed.csv:3: Please complete all the step elevation!"
  refused_over twice.csv '2,,,1,2,3,4,5\n2,,,1,2,3,4,6\n' "twice.csv:2: bent 2 is on line 1 too"
  run table new.ebnt --add rows.csv --replace rows.csv --output refused.ebnt
  expect 2 "--add and --replace"

  # Files that do not read.
  run table nowhere.ebnt
  expect 1 "a missing project"
  [[ "$err" == "nowhere.ebnt: "* ]] || fail "missing project: $err"
  mkdir folder.csv
  run table intermediate.ebnt --add folder.csv --output refused.ebnt
  expect 1 "rows from a folder"
  [[ "$err" == "folder.csv: "* ]] || fail "rows from a folder: $err"
  run table intermediate.ebnt --add nowhere.csv --output refused.ebnt
  expect 1 "rows from nowhere"
  run table intermediate.ebnt --add rows.csv --output no-folder/new.ebnt
  expect 1 "output into a missing folder"
  [[ "$err" == "no-folder/new.ebnt: "* ]] || fail "output into a missing folder: $err"
  run table intermediate.ebnt --add rows.csv
  expect 2 "--add without --output"
}

diff_cases() {
  # A revision made as the engineer makes one: a cap length typed, a bent pasted, a bent edited and replaced.
  cat >revise.txt <<'SCRIPT'
file end-with-backwall.ebnt
click mnuOpen
paste txtCapLength "82.5"
leave txtCapLength
paste-bents "9,,,99.8,99.9,100,100.1,104.25,104.5,101.75,104.5,105.1,105.2,104.9,105,104.95"
select 1
click cmdQuantity(3)
paste txtEStepPI(1) "99.95"
leave txtEStepPI(1)
click cmdQuantity(2)
answer No
file revised.ebnt
click mnuSave
SCRIPT
  run replay revise.txt
  expect 0 "making the revision"

  run diff end-with-backwall.ebnt end-with-backwall.ebnt
  expect 0 "a project against itself"
  [ -z "$out" ] || fail "a project against itself printed: $out"

  run diff end-with-backwall.ebnt revised.ebnt
  expect 1 "a revision"
  cat >want.txt <<'LINES'
Cap length: 38'-0" -> 82'-6"
Bent 9 added: Bottom Left Cap (blank), Bottom Right Cap (blank), 1Step EL. 99.80, 2Step EL. 99.90, 3Step EL. 100.00, 4Step EL. 100.10, Top Left Wingwall (Front Face) EL. 104.25, Top Right Wingwall (Front Face) EL. 104.50, Top Left Wingwall (End) EL. 101.75, Top Right Wingwall (End) EL. 104.50, Top Left Endpost EL. 105.10, Top Right Endpost EL. 105.20, Inside Face Left Endpost EL. 104.90, Centerline of Bent EL. 105.00, Inside Face Right Endpost EL. 104.95
Bent 3, 2Step: EL. 99.90 -> EL. 99.95
LINES
  cmp -s out.txt want.txt || fail "the revision's differences: $out"

  # For scripts: the control names, and lengths in decimal feet.
  run diff --names --units decimal-feet end-with-backwall.ebnt revised.ebnt
  expect 1 "a revision with the names"
  [ "$(head -n 1 out.txt)" = "Cap length (txtCapLength): 38.00' -> 82.50'" ] || fail "--names --units: $out"
  run diff --units metres end-with-backwall.ebnt revised.ebnt
  expect 2 "units it does not know"

  run diff revised.ebnt end-with-backwall.ebnt
  expect 1 "the revision the other way"
  [[ "$out" == *'Bent 9 removed: Bottom Left Cap (blank),'* ]] || fail "a removed bent: $out"

  # Another bent type: the type, its columns and every bent differ.
  run diff intermediate.ebnt end-with-backwall.ebnt
  expect 1 "two bent types"
  [[ "$out" == *'Bent type: Pile Intermediate Bent -> Pile End Bent with Backwall'* ]] || fail "bent type: $out"

  # Files that do not read are an error, as diff has it.
  run diff end-with-backwall.ebnt nowhere.ebnt
  expect 2 "a missing file"
  [[ "$err" == "nowhere.ebnt: "*"File not found"* ]] || fail "missing file: $err"
  mkdir folder.ebnt
  run diff folder.ebnt end-with-backwall.ebnt
  expect 2 "a folder"
  printf 'not a project\r\n' >garbage.ebnt
  run diff end-with-backwall.ebnt garbage.ebnt
  expect 2 "a file that is no project"
  [ -z "$out" ] || fail "an unreadable file still printed: $out"
  run diff end-with-backwall.ebnt
  expect 2 "one file only"
}

case $mode in
table) table_cases ;;
diff) diff_cases ;;
*) echo "unknown mode $mode"; exit 2 ;;
esac
[ "$failures" = 0 ] || exit 1
echo "all $mode cases passed"
