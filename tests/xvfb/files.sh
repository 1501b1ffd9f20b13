#!/usr/bin/env bash
# files.sh PROGRAM_FOLDER: a damaged file to start with, then the real file dialogs with typed names: one that lacks its
# ending is found, a copy is saved, and the program ends without a lock left behind.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
folder=$1
program=$folder/kvarnbo
. "$here/screen.sh"

echo "this is no database" >"$work/skrot.mdb"
sample "$work/prov.2026.mdb"

dialog_named() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
dialog_gone() { ! dialog_named "$1"; }
# asked_for TITLE KEY...: the keys bring the dialog. The menu is dead until the start-up pause is over: they are tried again.
asked_for() {
    key "${@:2}"
    until_true 4 dialog_named "$1" || { key Escape; return 1; }
}
# in_dialog STEPS TITLE NAME: the item so many steps down the file menu, and a name typed into its dialog.
in_dialog() {
    local downs=()
    for ((i = 0; i < $1; i++)); do downs+=(Down); done
    until_true 90 asked_for "$2" alt+a "${downs[@]}" Return || fail "no dialog '$2'"
    until_true 60 over_it || fail "the dialog '$2' does not have the keys"
    xdotool type --delay 40 "$3"
    key Return
    until_true 60 dialog_gone "$2" || fail "the dialog '$2' stays"
    until_true 60 active || fail "the window does not have the keys again"
}

start_screen
start_program "$work/skrot.mdb"
picture before
# The panels, and with them what the empty window says, come when the start-up pause is over.
until_true 60 differs nothing_open before || fail "the panels did not show"
[ ! -e "$work/skrot.mdb.lock" ] || fail "a file that is not open is locked"

in_dialog 1 "ppna FondFil" "$work/prov.2026"
until_true 60 test -e "$work/prov.2026.mdb.lock" || fail "the typed name did not find its file"
until_true 60 differs opened nothing_open || fail "the opened file does not show"

in_dialog 2 "Spara som" "$work/kopia.2026"
until_true 60 test -s "$work/kopia.2026.mdb" || fail "no copy"
[ "$("$JETCHECK" "$work/kopia.2026.mdb")" = OK ] || fail "the copy is not sound"
until_true 60 differs saved opened || fail "the receipt does not show"

key alt+F4
until_true 60 ended || fail "the program did not end"
client=
[ ! -e "$work/prov.2026.mdb.lock" ] || fail "the lock is left"
[ "$(cat "$work/skrot.mdb")" = "this is no database" ] || fail "the damaged file was changed"
echo "passed"
