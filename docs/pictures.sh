#!/usr/bin/env bash
# pictures.sh BUILD_FOLDER: draws the pictures of the front page anew from the program itself: a fund with a price typed, and
# the page of holdings.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
folder=$(cd "$1" && pwd)
program=$folder/kvarnbo
. "$here/../tests/xvfb/screen.sh"

sample "$work/Mina fonder.mdb"
start_screen
start_program "$work/Mina fonder.mdb"
xdotool mousemove 1279 959
open_fund() {
    key Home Down Down
    until_true 2 title_has "Tranhult"
}
until_true 90 open_fund || fail "no fund was opened; the title is '$(title)'"
# unmoved NAME: picture NAME is the same a second later.
unmoved() { picture "$1" && cp "$work/$1.png" "$work/last.png" && sleep 1 && ! differs "$1" last; }
picture listed
xdotool type --delay 60 "612,40"
until_true 60 differs typed listed || fail "nothing was typed"
until_true 60 unmoved typed || fail "the window does not stand still"
key Escape
key alt+p
until_true 60 differs holdings typed || fail "no holdings"
until_true 60 unmoved holdings || fail "the window does not stand still"
cp "$work/typed.png" "$here/kvarnbo.png"
cp "$work/holdings.png" "$here/innehav.png"
