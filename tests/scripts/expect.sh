# Sourced: a folder to work in, and ways to say what is expected.

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
failures=0
expect() {
    local what=$1
    shift
    "$@" && return 0
    echo "FAILED: $what: $*" >&2
    failures=$((failures + 1))
}
holds() { [ "$(cat "$1")" = "$2" ]; }
done_testing() { [ $failures -eq 0 ]; }
