#!/usr/bin/env bash
# takeover.sh OLD NEW SETTINGS: moves what a saver has in the build folder OLD, where the program used to run, to the
# saver's own folder NEW: fund files, log, notes. A file that NEW has already is not touched; the other comes beside it
# under a name of its own. A start file in SETTINGS that lay in OLD is named by its new place.
set -eu
old=$1 new=$2 settings=$3
say() { printf 'takeover: %s\n' "$*"; }

# A sample that is still as the build wrote it is none of the saver's.
untouched() {
    [ -f "$old/samples.sha256" ] && grep -qxF "$(sha256sum <"$1" | cut -d' ' -f1)  ${1##*/}" "$old/samples.sha256"
}

# free_name FILE: its name in NEW, with a number where that is taken.
free_name() {
    local name=${1##*/} number=2 stem ending
    stem=${name%.*} ending=${name##*.}
    while [ -e "$new/$name" ]; do
        name="$stem $number.$ending"
        number=$((number + 1))
    done
    printf '%s' "$name"
}

# as_setting TEXT: as the program writes a text that is not plain into its settings.
as_setting() {
    local text=${1//\\/\\\\}
    text=${text//\"/\\\"}
    case "$text" in *[\;,=]*) text="\"$text\"" ;; esac
    printf '%s' "$text"
}

# name_anew FROM TO: the start file, where it is FROM. Settings are replaced whole.
name_anew() {
    [ -f "$settings" ] || return 0
    FROM=$(as_setting "$1") PLAIN=$1 TO=$(as_setting "$2") awk '
        $0 == "StartPath=" ENVIRON["FROM"] || $0 == "StartPath=" ENVIRON["PLAIN"] { print "StartPath=" ENVIRON["TO"]; next }
        { print }' "$settings" >"$settings.new"
    mv "$settings.new" "$settings"
}

# is_open FILE: a running copy holds it. The lock names the process and its machine; one that is gone holds nothing.
is_open() {
    local process machine
    [ -e "$1.lock" ] || return 1
    process=$(sed -n 1p "$1.lock")
    machine=$(sed -n 3p "$1.lock")
    [ "$machine" != "$(hostname)" ] || [ -d "/proc/${process:-none}" ]
}

[ -d "$old" ] || exit 0
for file in "$old"/*.mdb "$old"/*.MDB "$old/FonderLogg.txt" "$old/Anteckningar.txt"; do
    [ -f "$file" ] || continue
    if untouched "$file"; then
        name_anew "$file" "$new/${file##*/}"
        continue
    fi
    if is_open "$file"; then
        say "${file##*/} is open in a running copy and stays where it is: $file"
        continue
    fi
    mkdir -p "$new"
    name=$(free_name "$file")
    cp -p "$file" "$new/.$name.new" && mv "$new/.$name.new" "$new/$name" && rm "$file"
    rm -f "$file.lock"
    name_anew "$file" "$new/$name"
    say "$file is now $new/$name"
done
