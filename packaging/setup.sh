# Sourced by ./run and ./test: installs what a fresh Debian 12 lacks. Nothing happens when all is there.

say() { printf '%s: %s\n' "${0##*/}" "$*"; }

BUILD_PACKAGES="g++ cmake ninja-build ccache qt6-base-dev qt6-svg-dev libgl-dev"
RUN_PACKAGES="libqt6svg6 qt6-qpa-plugins fonts-liberation2 fonts-dejavu-core"
SCREEN_PACKAGES="xvfb xauth openbox xdotool maim x11-utils"
TEST_PACKAGES="libgtest-dev libgmock-dev mdbtools poppler-utils clang-format-14"

# ensure_packages NAME...: installs those that are missing.
ensure_packages() {
    local missing=() name
    for name in "$@"; do
        [ "$(dpkg-query -W -f='${db:Status-Abbrev}' "$name" 2>/dev/null | cut -c1-2)" = ii ] || missing+=("$name")
    done
    [ ${#missing[@]} -eq 0 ] && return 0
    if ! command -v apt-get >/dev/null; then
        say "this machine has no apt-get; please install: ${missing[*]}" >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "not root and no sudo; please install: ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    say "installing ${missing[*]}"
    local log
    log=$(mktemp)
    if ! { "${as_root[@]}" apt-get update &&
           "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends "${missing[@]}"; } \
           >"$log" 2>&1 </dev/null; then
        cat "$log" >&2
        rm -f "$log"
        say "the installation failed" >&2
        return 1
    fi
    rm -f "$log"
}

# build PRESET [CMAKE OPTION...]: configures when needed, builds, and prints the compiler's words only on failure.
build() {
    local preset=$1 log
    shift
    log=$(mktemp)
    say "building ($preset)"
    if ! { cmake --preset "$preset" "$@" && cmake --build --preset "$preset"; } >"$log" 2>&1; then
        cat "$log" >&2
        rm -f "$log"
        say "the build failed" >&2
        return 1
    fi
    rm -f "$log"
}
