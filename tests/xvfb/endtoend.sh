#!/usr/bin/env bash
# endtoend.sh PROGRAM_FOLDER: a saver's day, with keys and mouse from outside the process. The day's price of the first
# holding is typed, the curve moves, two curves are chosen, the program quits; then two independent readers look at the file.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
folder=$1
program=$folder/kvarnbo
. "$here/screen.sh"

file=$work/saver.mdb
sample "$file"
today=$(($(date +%s -d "$(date +%F) UTC") / 86400 + 25569))

# KursKr and KontoId of the first holding, as the independent reader tells them.
column() { mdb-export -d '|' "$file" FONDDATA | awk -F'|' -v name="$1" 'NR==1{for(i=1;i<=NF;i++)if($i==name)c=i;next}NR==2{print $c}'; }
start=$(column KursKr)
konto=$(column KontoId)
price=$(awk -v s="$start" 'BEGIN{printf "%.2f", s*1.25}' | tr . ,)
# Points of that holding today, as "XCord,YCord" lines.
points_today() { mdb-export -H "$file" PLOTTDATA | awk -F, -v k="$konto" -v d="$today" '$4==k && $2==d{print $3}'; }

start_screen
start_program "$file"
until_true 60 title_has "Kvarnbo" || fail "no title"

# The working panels show when the start-up pause is over, and with them the open list. F11 opens and closes it, so one
# that comes too early or too late is made good by the next.
open_first_holding() {
    key F11
    key Home Return
    until_true 2 title_has "Senaste uppdatering"
}
until_true 90 open_first_holding || fail "no holding was opened; the title is '$(title)'"
picture before
xdotool type --delay 60 "${price/,/.}"
key Return
stored() { [ "$(points_today | wc -l)" = 1 ]; }
until_true 60 stored || fail "no point of today in the file"
yield=$(points_today)
[ "$yield" = 25 ] || fail "the point is $yield percent, not 25"
until_true 60 differs after before || fail "the picture did not change"

# Esc hides the diagram button too; opening and closing the list brings it back, and with it F12.
key Escape
key F11 F11
key F12
until_true 60 differs choosing after || fail "no list to choose curves from"
# The first line is the chosen one already: Down chooses the second, then the third.
key Home Down Down
picture choosing
key F12
until_true 60 differs chosen choosing || fail "the choice did not end"
key alt+F4
until_true 60 ended || fail "the program did not end"
client=

[ "$("$JETCHECK" "$file")" = OK ] || fail "the file is not sound: $("$JETCHECK" "$file")"
scale=$(mdb-export -d '|' -H "$file" FONDDATA | head -n 1 | awk -F'|' '{print $(NF-1)}' | tr -d '"')
case "$scale" in
    2.3./*/*) ;;
    *) fail "the chosen curves are not in the first row: $scale" ;;
esac
[ "$(points_today)" = 25 ] || fail "the point changed"
"$JETDUMP" "$file" >"$work/dump" || fail "the dump failed"
echo "passed: $price kr stored as 25 percent; chosen curves: $scale"
