#!/usr/bin/env bash
# run_test.sh SOURCES: what ./run says before it installs or builds anything, from wherever it is called.
set -eu
. "$(dirname "$0")/expect.sh"
mkdir "$work/a path with blanks"
cp -r "$1/run" "$1/packaging" "$work/a path with blanks/"
ln -s "$work/a path with blanks/run" "$work/link"

without_display() { env -u DISPLAY -u WAYLAND_DISPLAY "$@" >"$work/said" 2>&1; }
for run in "$work/a path with blanks/run" "$work/link"; do
    expect "no display is a failure: $run" eval '! without_display "$run"'
    expect "and is told first: $run" grep -qF "this machine has no display" "$work/said"
    expect "before anything else: $run" eval '! grep -qE "installing|building" "$work/said"'
    expect "help: $run" without_display "$run" --help
    expect "which names the modes: $run" grep -qF -- "--vnc" "$work/said"
done

# A port that is taken, and a screen that would listen to others.
bin=$work/bin
mkdir "$bin"
vnc="$work/a path with blanks/packaging/vnc.sh"
port=$((20000 + $$ % 20000))
coproc LISTENER { python3 -c "
import socket, sys
s = socket.socket(); s.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
s.bind(('127.0.0.1', $port)); s.listen(); print('up', flush=True); sys.stdin.read()"; }
read -r -u "${LISTENER[0]}" _
expect "a taken port is refused" eval '! "$vnc" /bin/true "$port" >"$work/said" 2>&1'
expect "and named" grep -qF "port $port is in use" "$work/said"
kill "$LISTENER_PID" && wait "$LISTENER_PID" 2>/dev/null || true

cat >"$bin/tigervncpasswd" <<'S'
#!/bin/sh
cat
S
cat >"$bin/Xtigervnc" <<'S'
#!/usr/bin/env python3
import socket, sys, time
at = sys.argv.index("-rfbport")
s = socket.socket(); s.setsockopt(socket.SOL_SOCKET, socket.SO_REUSEADDR, 1)
s.bind(("0.0.0.0", int(sys.argv[at + 1]))); s.listen(); time.sleep(60)
S
printf '#!/bin/sh\n' >"$bin/xauth"
printf '#!/bin/sh\ntouch "%s"\n' "$work/started" >"$bin/program"
chmod +x "$bin"/*
port=$((port + 1))
expect "an open screen is refused" eval '! PATH="$bin:$PATH" "$vnc" "$bin/program" "$port" >"$work/said" 2>&1'
expect "and told" grep -qF "can be reached from other machines" "$work/said"
expect "the program never starts" [ ! -e "$work/started" ]
done_testing
