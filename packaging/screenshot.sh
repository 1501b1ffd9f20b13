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
Xvfb -displayfd 3 -screen 0 "${size}x24" -noreset -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
server=$!
read -r -t 60 number <"$work/display"
export DISPLAY=:$number XDG_CONFIG_HOME=$work/config QT_QPA_PLATFORM=xcb

"$program" >"$work/log" 2>&1 &
client=$!
give_up() {
    cat "$work/log" >&2
    echo "$1" >&2
    exit 1
}

# A search that meets a window in the moment it goes away fails: it is asked again.
window=
limit=$((SECONDS + 60))
until [ -n "$window" ]; do
    kill -0 "$client" 2>/dev/null || give_up "the program ended by itself"
    [ $SECONDS -lt $limit ] || give_up "the window did not come up"
    sleep 0.1
    window=$(xdotool search --onlyvisible --pid "$client" --name Kvarnbo 2>/dev/null | head -n 1) || true
done

# The working panels show when a start-up pause of three seconds is over. So the picture is ready when it has changed
# since the first one and then stood still; where it was ready in the first already, nothing changes for ten seconds.
first= last= changed=
still=$SECONDS
limit=$((SECONDS + 60))
while [ $SECONDS -lt $limit ]; do
    maim -u -i "$window" "$work/shot.png"
    sum=$(cksum <"$work/shot.png")
    [ -n "$first" ] || first=$sum
    [ "$sum" = "$first" ] || changed=yes
    [ "$sum" = "$last" ] || still=$SECONDS
    last=$sum
    [ $((SECONDS - still)) -ge $([ -n "$changed" ] && echo 4 || echo 10) ] && break
    sleep 0.3
done
kill -0 "$client" 2>/dev/null || give_up "the program ended by itself"
mkdir -p "$(dirname "$picture")"
cp "$work/shot.png" "$picture"
echo "picture written: $picture"
