#!/usr/bin/env bash
# A project outside the tree builds and runs with the library.
#   consumer.sh find_package|pkg_config|add_subdirectory BUILD SOURCE
set -eu
way=$1 build=$2 source=$3
example=$source/tests/jet/readme_example.cpp
temporary=$(mktemp -d)
trap 'rm -rf "$temporary"' EXIT
cp "$source/tests/consumer/CMakeLists.txt" "$source/tests/consumer/main.cpp" "$temporary"

installed() { cmake --install "$build/jet" --component library --prefix "$temporary/prefix" >/dev/null; }

with_cmake() {
    cmake -S "$temporary" -B "$temporary/build" -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 \
        -DEXAMPLE="$example" "$@" >"$temporary/log" || { cat "$temporary/log"; exit 1; }
    cmake --build "$temporary/build" >"$temporary/log" || { cat "$temporary/log"; exit 1; }
    cp "$temporary/build/consumer" "$temporary/consumer"
}

# What another program links with is named jet:: and nothing else; nor is anything behind the headers installed.
alone() {
    local library others
    library=$(find "$temporary/prefix" -name 'libjet.a')
    others=$(nm -C -g --defined-only "$library" | grep -E '^[0-9a-f]+ [A-TX-Z] ' | grep -v 'jet::' || true)
    [ -z "$others" ] || { echo "in the global namespace:"; echo "$others"; exit 1; }
    others=$(cd "$source" && ls jet/*.h | sort | diff - <(cd "$temporary/prefix/include" && find . -name '*.h' |
        sed 's|^\./||' | sort) || true)
    [ -z "$others" ] || { echo "headers that are installed, and those beside the library:"; echo "$others"; exit 1; }
}

case $way in
find_package)
    installed
    alone
    with_cmake -DCMAKE_PREFIX_PATH="$temporary/prefix"
    ;;
pkg_config)
    installed
    # A tree that was moved after it was installed is found as well.
    mv "$temporary/prefix" "$temporary/moved"
    PKG_CONFIG_PATH=$(dirname "$(find "$temporary/moved" -name jet.pc)")
    export PKG_CONFIG_PATH
    # shellcheck disable=SC2046,SC2086
    ${CXX:-c++} -std=c++20 ${CXXFLAGS:-} $(pkg-config --cflags jet) -o "$temporary/consumer" \
        "$temporary/main.cpp" "$example" $(pkg-config --libs jet)
    ;;
add_subdirectory)
    with_cmake -DJET_SOURCE="$source/jet"
    ;;
esac
printf '1 Åsa\n2 Örjan\nsound\n' | diff - <("$temporary/consumer" "$temporary/people.mdb")
