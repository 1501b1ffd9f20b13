#!/usr/bin/env bash
# screenshot.sh PROGRAM PICTURE [WIDTHxHEIGHT]: starts the program on a virtual screen of its own, with settings
# of its own, waits until its window has come up and stands still, and writes the picture (PNG).
set -eu
program=$1
picture=$2
size=${3-1280x960}

work=$(mktemp -d)
server= client=
cleanup() {
    [ -n "$client" ] && kill "$client" 2>/dev/null && wait "$client" 2>/dev/null || true
    [ -n "$server" ] && kill "$server" 2>/dev/null && wait "$server" 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

mkfifo "$work/display"
Xvfb -displayfd 3 -screen 0 "${size}x24" -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
server=$!
read -r -t 20 number <"$work/display"
export DISPLAY=:$number XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=xcb

"$program" >"$work/log" 2>&1 &
client=$!
# A search that meets a window in the moment it goes away fails: it is asked again.
window=
for _ in $(seq 300); do
    window=$(xdotool search --onlyvisible --pid "$client" --name Kvarnbo 2>/dev/null | head -n 1) || true
    [ -z "$window" ] || break
    sleep 0.1
done
if [ -z "$window" ]; then
    cat "$work/log" >&2
    echo "the window did not come up" >&2
    exit 1
fi

# The working panels show after a start-up pause of three seconds: wait past it, then for a still picture.
sleep 4
last=
for _ in $(seq 40); do
    maim -u -i "$window" "$work/shot.png"
    sum=$(cksum <"$work/shot.png")
    [ "$sum" = "$last" ] && break
    last=$sum
    sleep 0.5
done
kill -0 "$client" 2>/dev/null || { cat "$work/log" >&2; echo "the program ended by itself" >&2; exit 1; }
mkdir -p "$(dirname "$picture")"
cp "$work/shot.png" "$picture"
echo "picture written: $picture"
