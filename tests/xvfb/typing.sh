#!/usr/bin/env bash
# typing.sh PROGRAM_FOLDER: where keys go on a real desktop. A price typed while the list has the focus is that of the
# fund that is open, although its number begins like another fund's; and what is half typed in the holdings grid outlives
# a window that is minimised and brought back. The file is read by an independent reader.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
folder=$1
program=$folder/kvarnbo
. "$here/screen.sh"

file=$work/saver.mdb
sample "$file"

# Column NAME of the holdings, one row a line, as the independent reader tells it.
column() { mdb-export -d '|' -Q "$file" FONDDATA | awk -F'|' -v name="$1" 'NR==1{for(i=1;i<=NF;i++)if($i==name)c=i;next}{print $c}'; }
latest() { column SenasteKurs | sed -n "$1p"; }
rows() { column KontoId | wc -l; }

start_screen
start_program "$file"
until_true 60 title_has "Kvarnbo" || fail "no title"

# Down opens the second fund; its price is typed there and then.
second=$(column Fond | sed -n 2p)
other=$(column SenasteKurs | sed '2d')
start=$(column KursKr | sed -n 2p)
price=$(awk -v s="$start" 'BEGIN{printf "%.2f", s*1.1}' | tr . ,)
open_second() {
    key Home Down
    until_true 2 title_has "$second"
}
until_true 90 open_second || fail "the second fund was not opened; the title is '$(title)'"
xdotool type --delay 60 "$price"
picture typed
key Return
price_stored() { [ "$(latest 2)" = "Senaste : $price" ]; }
until_true 60 price_stored || fail "the second fund's price is '$(latest 2)', not $price"
[ "$(column SenasteKurs | sed '2d')" = "$other" ] || fail "another fund's price changed"
title_has "$second" || fail "another fund was opened: '$(title)'"

# Half a name in a new row, the window away and back, the rest of the name and of the row.
minimised() { xprop -id "$window" WM_STATE | grep -q Iconic; }
before=$(rows)
picture list
key alt+p
until_true 60 differs grid list || fail "no holdings grid"
key ctrl+End Home
xdotool type --delay 60 "Halvvag"
until_true 60 differs half grid || fail "nothing was typed"
xdotool windowminimize "$window"
until_true 60 minimised || fail "the window was not minimised"
xdotool windowmap "$window"
xdotool windowactivate "$window"
until_true 60 active || fail "the window does not have the keys again"
picture back
xdotool type --delay 60 "en"
key Right
xdotool type --delay 60 "123456"
key Right
xdotool type --delay 60 "2026-01-02"
key Right
xdotool type --delay 60 "1234,5678"
key Right
xdotool type --delay 60 "524287,99"
key Return
key Up
row_stored() { [ "$(rows)" = $((before + 1)) ]; }
until_true 60 row_stored || fail "the new row is not in the file"
[ "$(column Fond | tail -n 1)" = Halvvagen ] || fail "the name is '$(column Fond | tail -n 1)'"
[ "$(column FondNr | tail -n 1)" = "123 456" ] || fail "the number is '$(column FondNr | tail -n 1)'"
shares=$(column Fondandelar | tail -n 1)
[ "$shares" = 1234.5678 ] || fail "the shares are $shares"
start=$(column KursKr | tail -n 1)
[ "$start" = 524287.99 ] || fail "the start price is $start"

key alt+F4
until_true 60 ended || fail "the program did not end"
client=
[ "$("$JETCHECK" "$file")" = OK ] || fail "the file is not sound: $("$JETCHECK" "$file")"
echo "passed: $price kr for $second; a row that was half typed when the window was minimised"
