# Sourced: a virtual screen of its own with a window manager, and ways to drive a program on it.

work=$(mktemp -d)
server= manager= client=
cleanup() {
    local status=$?
    if [ $status -ne 0 ]; then
        [ -n "${DISPLAY-}" ] && maim "$work/failed.png" 2>/dev/null || true
        [ -f "$work/log" ] && cat "$work/log" >&2
    fi
    [ -n "${KEEP_PICTURES-}" ] && cp "$work"/*.png "$KEEP_PICTURES" 2>/dev/null || true
    for process in $client $manager $server; do
        kill "$process" 2>/dev/null && wait "$process" 2>/dev/null || true
    done
    rm -rf "$work"
    exit $status
}
trap cleanup EXIT

fail() {
    echo "FAILED: $*" >&2
    exit 1
}

start_screen() {
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 "${1-1280x960}x24" -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
    server=$!
    local number
    read -r -t 20 number <"$work/display" || fail "no virtual screen"
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
    unset WAYLAND_DISPLAY
    openbox >/dev/null 2>&1 &
    manager=$!
}

# start_program FILE: on that fund file, told through the settings as the program itself keeps them.
start_program() {
    mkdir -p "$work/config/Kvarnbo"
    printf '[StartUp]\nStartPath=%s\nStartX=1\n' "$1" >"$work/config/Kvarnbo/Kvarnbo.ini"
    "$program" >"$work/log" 2>&1 &
    client=$!
    until_true 30 found_window || fail "the window did not come up"
    xdotool windowactivate --sync "$window" 2>/dev/null || true
}

# until_true SECONDS COMMAND...: polls.
until_true() {
    local tries=$(($1 * 10))
    shift
    while [ $tries -gt 0 ]; do
        "$@" && return 0
        sleep 0.1
        tries=$((tries - 1))
    done
    return 1
}

# A search that meets a window in the moment it goes away fails: it is asked again.
found_window() {
    window=$(xdotool search --onlyvisible --pid "$client" --name Kvarnbo 2>/dev/null | head -n 1)
    [ -n "$window" ]
}
title() { xdotool getwindowname "$window"; }
title_has() { title | grep -qF -- "$1"; }
title_lacks() { ! title_has "$1"; }
key() { xdotool key --delay 60 "$@"; }
picture() { maim -i "$window" "$work/$1.png"; }
still_running() { kill -0 "$client" 2>/dev/null; }
ended() { ! still_running; }
