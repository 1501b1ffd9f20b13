# Sourced: a virtual screen of its own with a window manager, and ways to drive a program on it. `program` is the program,
# `folder` the build it comes from.

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

# Without -noreset the screen forgets everything when its last client leaves: a search that comes and goes before the
# window manager is there would take the manager with it.
start_screen() {
    mkfifo "$work/display"
    Xvfb -displayfd 3 -screen 0 "${1-1280x960}x24" -noreset -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
    server=$!
    local number
    read -r -t 60 number <"$work/display" || fail "no virtual screen"
    export DISPLAY=:$number QT_QPA_PLATFORM=xcb XDG_CONFIG_HOME=$work/config XDG_DATA_HOME=$work/data
    unset WAYLAND_DISPLAY
    openbox >/dev/null 2>&1 &
    manager=$!
    until_true 60 managed || fail "no window manager"
}

# A window manager tells that it is there through its own window, which the root names and which names itself.
managed() {
    local its
    its=$(xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | sed -n 's/.*# \(0x[0-9a-f]*\).*/\1/p')
    [ -n "$its" ] && xprop -id "$its" _NET_SUPPORTING_WM_CHECK >/dev/null 2>&1
}

# sample FILE: a copy of the sample fund file, one that may be written.
sample() { cp "$folder/share/kvarnbo/Vimmels_exempel.mdb" "$1" && chmod u+w "$1"; }

# start_program FILE: on that fund file, told through the settings as the program itself keeps them.
start_program() {
    mkdir -p "$work/config/Kvarnbo"
    printf '[StartUp]\nStartPath=%s\nStartX=1\n' "$1" >"$work/config/Kvarnbo/Kvarnbo.ini"
    "$program" >"$work/log" 2>&1 &
    client=$!
    until_true 60 found_window || fail "the window did not come up"
    xdotool windowactivate "$window"
    until_true 60 active || fail "the window does not have the keys"
}

# until_true SECONDS COMMAND...: asks again and again until the command says yes, or for so long. The time is a limit
# for what never comes, so it may be generous: a busy machine takes many times as long as an idle one.
until_true() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.1
    done
}

# A search that meets a window in the moment it goes away fails: it is asked again.
found_window() {
    window=$(xdotool search --onlyvisible --pid "$client" --name Kvarnbo 2>/dev/null | head -n 1)
    [ -n "$window" ]
}
# The window that has the keys. The window manager may call a window active a moment before the keys go there: what is
# typed in that moment is lost, so both must name it.
with_keys() {
    local its
    its=$(xdotool getactivewindow 2>/dev/null) && [ "$its" = "$(xdotool getwindowfocus 2>/dev/null)" ] && echo "$its"
}
active() { [ "$(with_keys)" = "$window" ]; }
# A dialog or message has the keys.
over_it() {
    local its
    its=$(with_keys) && [ "$its" != "$window" ]
}
title() { xdotool getwindowname "$window"; }
title_has() { title | grep -qF -- "$1"; }
title_lacks() { ! title_has "$1"; }
key() { xdotool key --delay 60 "$@"; }
picture() { maim -i "$window" "$work/$1.png"; }
# differs NEW OLD: takes picture NEW and says whether it shows something else than picture OLD.
differs() { picture "$1" && ! cmp -s "$work/$1.png" "$work/$2.png"; }
still_running() { kill -0 "$client" 2>/dev/null; }
ended() { ! still_running; }
