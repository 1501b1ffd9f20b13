#!/usr/bin/env bash
# takeover_test.sh SOURCES: what an earlier run left in the build folder comes to the saver's folder, whole and once.
set -eu
. "$(dirname "$0")/expect.sh"
takeover=$1/packaging/takeover.sh
old="$work/build folder" new=$work/home/Kvarnbo settings=$work/Kvarnbo.ini
mkdir -p "$old"

begin() {
    rm -rf "$old" "$new" && mkdir -p "$old"
    echo "as built" >"$old/Rusken_Kina.mdb"
    (cd "$old" && sha256sum Rusken_Kina.mdb >samples.sha256)
    echo "years of prices" >"$old/Vimmels_exempel.mdb"
    echo "my own" >"$old/Mina fonder.mdb"
    echo "an entry" >"$old/FonderLogg.txt"
    printf '[StartUp]\nStartPath=%s\nStartX=7\n' "$old/Mina fonder.mdb" >"$settings"
}
run() { "$takeover" "$old" "$new" "$settings" >"$work/said"; }

begin
run
expect "a fund file moves" holds "$new/Mina fonder.mdb" "my own"
expect "a sample with prices moves" holds "$new/Vimmels_exempel.mdb" "years of prices"
expect "the log moves" holds "$new/FonderLogg.txt" "an entry"
expect "nothing is left" [ ! -e "$old/Mina fonder.mdb" ]
expect "an untouched sample stays" [ ! -e "$new/Rusken_Kina.mdb" ]
expect "the start file is named anew" grep -qxF "StartPath=$new/Mina fonder.mdb" "$settings"
expect "the other setting stays" grep -qxF "StartX=7" "$settings"
expect "it says so" grep -qF "is now $new/Mina fonder.mdb" "$work/said"
run
expect "the second time nothing is said" [ ! -s "$work/said" ]

begin
mkdir -p "$new"
echo "newer" >"$new/Mina fonder.mdb"
run
expect "what is there stays" holds "$new/Mina fonder.mdb" "newer"
expect "the other comes beside it" holds "$new/Mina fonder 2.mdb" "my own"
expect "the start file is the moved one" grep -qxF "StartPath=$new/Mina fonder 2.mdb" "$settings"

lock() { printf '%s\nkvarnbo\n%s\n' "$1" "$2" >"$old/Mina fonder.mdb.lock"; }
begin
lock $$ "$(hostname)"
run
expect "an open file stays" holds "$old/Mina fonder.mdb" "my own"
expect "and is told" grep -qF "is open in a running copy" "$work/said"
begin
lock 1 another-machine
run
expect "so does one that another machine has open" holds "$old/Mina fonder.mdb" "my own"
begin
lock "$(sh -c 'echo $$')" "$(hostname)"
run
expect "the lock of a process that is gone holds nothing" holds "$new/Mina fonder.mdb" "my own"
expect "and goes with the file" [ ! -e "$old/Mina fonder.mdb.lock" ]

begin
name='Mors \\ och "fars", 100% åäö.mdb'
mv "$old/Mina fonder.mdb" "$old/$name"
written='Mors \\\\ och \"fars\", 100% åäö.mdb'  # as the program writes it
printf '[StartUp]\nStartPath="%s"\n' "$old/$written" >"$settings"
run
expect "any name moves" holds "$new/$name" "my own"
expect "and is named anew" grep -qxF "StartPath=\"$new/$written\"" "$settings"

begin
printf '[StartUp]\nStartPath=%s\n' "$old/Rusken_Kina.mdb" >"$settings"
run
expect "an untouched start file is the saver's own copy" grep -qxF "StartPath=$new/Rusken_Kina.mdb" "$settings"

rm -rf "$old"
expect "without a build folder nothing happens" run
done_testing
