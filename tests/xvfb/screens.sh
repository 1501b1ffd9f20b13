#!/usr/bin/env bash
# screens.sh TEST_PROGRAM: the window of the real outside world on screens of the sizes it is made for, under a window
# manager that puts title bars over windows.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
program=$1
. "$here/screen.sh"

for size in 640x480 800x600 1066x800; do
    (
        work=$work/$size
        mkdir -p "$work"
        trap - EXIT
        server= manager= client=
        trap cleanup EXIT
        start_screen "$size"
        KVARNBO_SCREEN=$size "$program" --gtest_brief=1
    ) || fail "on a screen of $size"
done
echo "passed"
