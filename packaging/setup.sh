# Sourced by ./run and ./test: installs what a fresh Debian 12 or 13 lacks. Nothing happens when all is there.

say() { printf '%s: %s\n' "${0##*/}" "$*"; }

# A|B: the first of them that there is. A?: only where there is such a package.
BUILD_PACKAGES="g++ cmake ninja-build ccache gzip qt6-base-dev qt6-svg-dev libgl-dev"
RUN_PACKAGES="libqt6svg6 qt6-wayland fonts-liberation2|fonts-liberation fonts-dejavu-core"
SCREEN_PACKAGES="xvfb xauth openbox xdotool maim x11-utils"
VNC_PACKAGES="tigervnc-standalone-server tigervnc-tools xauth openbox"
TEST_PACKAGES="libgtest-dev libgmock-dev mdbtools poppler-utils pkgconf|pkg-config python3 clang-format-14?"

# Everything temporary goes when the script ends, by itself or by Ctrl+C.
temporary=$(mktemp -d)
trap 'rm -rf "$temporary"' EXIT
trap 'exit 130' INT
trap 'exit 143' TERM

installed() { [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$1" 2>/dev/null | cut -c1-2)" = ii ]; }
available() { apt-cache show "$1" >/dev/null 2>&1; }

# missing_packages NAME...: prints those that are not installed, each choice as it was written.
missing_packages() {
    local choice name
    for choice in "$@"; do
        for name in $(printf '%s' "${choice%\?}" | tr '|' ' '); do
            installed "$name" && continue 2
        done
        printf '%s ' "$choice"
    done
}

# chosen_packages CHOICE...: prints what to install for each.
chosen_packages() {
    local choice name
    for choice in "$@"; do
        for name in $(printf '%s' "${choice%\?}" | tr '|' ' '); do
            available "$name" && break
        done
        if [ "${choice%\?}" != "$choice" ] && ! available "$name"; then continue; fi
        printf '%s ' "$name"
    done
}

# ensure_packages NAME...: installs those that are missing.
ensure_packages() {
    local missing as_root=() log=$temporary/apt
    missing=$(missing_packages "$@")
    # What only some systems have is not worth a look over the network when it is all that is missing.
    if ! printf '%s\n' $missing | grep -q '[^?]$'; then
        missing=$(command -v apt-cache >/dev/null && chosen_packages $missing)
    fi
    [ -n "$missing" ] || return 0
    if ! command -v apt-get >/dev/null; then
        say "this machine has no apt-get; please install: $missing" >&2
        return 1
    fi
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "not root and no sudo; please install: $missing" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    say "installing $missing"
    if ! { "${as_root[@]}" apt-get update && missing=$(chosen_packages $missing) &&
           "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing; } \
           >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        say "the installation failed" >&2
        return 1
    fi
}

# Reads the builder's lines "[3/226] ..." and shows how far it is: in place on a terminal, else at every tenth.
progress() {
    local line counts shown=-1 tenth
    while IFS= read -r line; do
        counts=${line%%]*}
        counts=${counts#\[}
        case "$counts" in */*) ;; *) continue ;; esac
        case "${counts%/*}${counts#*/}" in '' | *[!0-9]*) continue ;; esac
        if [ -t 1 ]; then
            printf '\r%s: built %s of %s ' "${0##*/}" "${counts%/*}" "${counts#*/}"
            shown=10
            continue
        fi
        tenth=$((${counts%/*} * 10 / ${counts#*/}))
        [ "$tenth" -eq "$shown" ] || say "built ${counts%/*} of ${counts#*/}"
        shown=$tenth
    done
    if [ -t 1 ] && [ $shown -ge 0 ]; then printf '\n'; fi
}

# build PRESET [CMAKE OPTION...]: configures when needed, builds, and prints the compiler's words only on failure.
build() {
    local preset=$1 log=$temporary/build
    shift
    say "building ($preset)"
    if ! { cmake --preset "$preset" "$@" >"$log" 2>&1 &&
           set -o pipefail && NINJA_STATUS='[%f/%t] ' cmake --build --preset "$preset" 2>&1 | tee -a "$log" | progress; }; then
        cat "$log" >&2
        say "the build failed" >&2
        return 1
    fi
}
