#!/usr/bin/env bash
# newholdings.sh PROGRAM_FOLDER: a new fund file and its first two holdings, typed with the keyboard. A wrong date is typed
# again and again and left in every way there is: after the real message the next keys must go to the date, nowhere else.
# An independent reader then tells what is in the file.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
folder=$1
program=$folder/kvarnbo
. "$here/screen.sh"

sample "$work/before.mdb"
file=$work/new.mdb

say() { xdotool type --delay 40 -- "$1"; }
rows() { mdb-export -H "$file" FONDDATA 2>/dev/null | wc -l; }
rows_are() { [ "$(rows)" = "$1" ]; }
# Column $1 of row $2, counted from 1.
cell() { mdb-export -d '|' -Q "$file" FONDDATA | awk -F'|' -v name="$1" -v row="$2" 'NR==1{for(i=1;i<=NF;i++)if($i==name)c=i;next}NR==row+1{print $c}'; }
expect() { [ "$(cell "$1" "$2")" = "$3" ] || fail "$1 of row $2 is '$(cell "$1" "$2")', not '$3'"; }

start_screen
start_program "$work/before.mdb"

# The menu is dead until the start-up pause is over.
ask_for_new_file() {
    key alt+a
    key Return
    until_true 2 over_it || { key Escape; return 1; }
}
until_true 90 ask_for_new_file || fail "no dialog for a new file"
# The dialog for the new file, the question whether it is to be opened, the dialog to open it.
dialog=$(with_keys)
next_dialog() { over_it && [ "$(with_keys)" != "$dialog" ]; }
say "$file"
key Return
until_true 60 test -s "$file" || fail "no new file"
until_true 60 next_dialog || fail "no question"
dialog=$(with_keys)
key Return
until_true 60 next_dialog || fail "no dialog to open the file"
say "$file"
key Return
until_true 60 test -e "$file.lock" || fail "the new file was not opened"
until_true 60 active || fail "the window does not have the keys"

# A file without holdings shows the grid at once.
say "Gran Norden"
key Tab
say "249995"
key Tab

# leave COMMAND...: the wrong date is typed, the cell left like this, the message confirmed.
leave() {
    say "26-02-30"
    "$@"
    until_true 60 over_it || fail "no message after: $*"
    key Return
    until_true 60 active || fail "the message did not go after: $*"
}
click() { xdotool mousemove --window "$window" "$1" "$2" click 1; }
eval "$(xdotool getwindowgeometry --shell "$window")"
leave key Tab
leave key shift+Tab
leave key Return
leave key Up
# "Visa alla kurvor", the first of its menu.
by_menu() { key alt+v; key Return; }
leave by_menu
leave key alt+d
leave key alt+n
leave click $((WIDTH / 10)) $((HEIGHT * 35 / 100))
picture wrong
say "2026-02-27"
key Return
say "1 234,5678"
key Return
say "100.25"
key Return
picture typed
key Return
say "12"
key Return
until_true 60 rows_are 1 || fail "the first row was not stored"
say "Rusken Kina"
key Return
say "249996"
key Return
say "26/02/28"
key Return
say "10"
key Return
say "50"
key Down
until_true 60 rows_are 2 || fail "the second row was not stored"
picture two

# A third one is begun and given up: Esc for the cell, Esc for the row, and the question is answered with No, then with Yes.
say "Halv"
key Return
say "7"
key Escape
key Escape
until_true 60 over_it || fail "no question before a row is given up"
key Return
until_true 60 active || fail "the question did not go"
key Escape
until_true 60 over_it || fail "no second question"
picture asked
key Left Return
until_true 60 active || fail "the second question did not go"
picture diagram
key alt+F4
until_true 60 ended || fail "the program did not end"
client=

[ "$("$JETCHECK" "$file")" = OK ] || fail "the file is not sound: $("$JETCHECK" "$file")"
rows_are 2 || fail "$(rows) rows"
expect Fond 1 "Gran Norden"
expect FondNr 1 "249 995"
case "$(cell BokförtDatum 1)" in 02/27/26*|2026-02-27*) ;; *) fail "the date is '$(cell BokförtDatum 1)'" ;; esac
expect Fondandelar 1 1234.5678
expect KursKr 1 100.25
expect Andel% 1 12
expect Fond 2 "Rusken Kina"
expect KursKr 2 50
[ "$(mdb-export -H "$file" PLOTTDATA | wc -l)" = 2 ] || fail "the points: $(mdb-export -H "$file" PLOTTDATA)"
echo "passed: two holdings in a new file, $(mdb-export -H "$file" PLOTTDATA | tr '\n' ' ')"
