#!/usr/bin/env bash
# vnc.sh PROGRAM [PORT]: the program on a screen of its own, for a VNC viewer on this machine. The screen asks for a
# password that is made anew each time, and listens to this machine only; when either cannot be had, nothing starts.
set -eu
program=$1
port=${2-5900}
say() { printf 'run: %s\n' "$*"; }

work=$(mktemp -d)
server= manager= client=
cleanup() {
    for process in $client $manager $server; do
        kill "$process" 2>/dev/null && wait "$process" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

answers() { (exec 3<>"/dev/tcp/127.0.0.1/$port") 2>/dev/null; }
# The local addresses that are listened to at the port, as the kernel writes them (state 0A).
listened() { awk -v port="$(printf ':%04X' "$port")" '$4 == "0A" && substr($2, length($2) - 4) == port { print $2 }' /proc/net/tcp /proc/net/tcp6; }
only_here() {
    local address all
    all=$(listened)
    [ -n "$all" ] || return 1
    for address in $all; do
        case "${address%:*}" in 0100007F | 00000000000000000000000001000000 | 0000000000000000FFFF00000100007F) ;; *) return 1 ;; esac
    done
}

if answers; then
    say "port $port is in use already: is another ./run --vnc running?" >&2
    exit 1
fi
password=$(head -c 96 /dev/urandom | base64 -w 0 | tr -dc 'a-km-zA-HJ-NP-Z2-9' | cut -c1-8)
[ ${#password} -eq 8 ]
printf '%s\n' "$password" | tigervncpasswd -f >"$work/password"
[ -s "$work/password" ]

# Other users of this machine could draw on the screen or read it without this key.
cookie=$(od -An -N16 -tx1 /dev/urandom | tr -d ' \n')
number=10
while [ -e "/tmp/.X$number-lock" ] || [ -e "/tmp/.X11-unix/X$number" ]; do number=$((number + 1)); done
export DISPLAY=:$number XAUTHORITY=$work/keys
printf 'add %s . %s\n' "$DISPLAY" "$cookie" | xauth -q 2>/dev/null
Xtigervnc "$DISPLAY" -auth "$XAUTHORITY" -localhost=1 -rfbport "$port" -SecurityTypes VncAuth \
    -PasswordFile "$work/password" -geometry 1280x960 -depth 24 -noreset -nolisten tcp >"$work/log" 2>&1 &
server=$!
limit=$((SECONDS + 60))
until answers; do
    if ! kill -0 "$server" 2>/dev/null || [ $SECONDS -ge $limit ]; then
        cat "$work/log" >&2
        say "the screen did not start" >&2
        exit 1
    fi
    sleep 0.1
done
if ! only_here; then
    say "the screen can be reached from other machines: not started" >&2
    exit 1
fi

export QT_QPA_PLATFORM=xcb
unset WAYLAND_DISPLAY
openbox >/dev/null 2>&1 &
manager=$!
say "open 127.0.0.1:$port in a VNC viewer on this machine; end with Ctrl+C"
say "password: $password (made for this time only; without it other users of this machine could see the window)"
"$program" &
client=$!
wait "$client" || true
