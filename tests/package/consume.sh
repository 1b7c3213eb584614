#!/bin/sh
# Builds the example with the library as a consumer gets it, and runs it.
# consume.sh SOURCE WORK static|folder
set -eu
source=$1
work=$2/$3
kind=$3
rm -rf "$work"
mkdir -p "$work"

# All files of a target as one, which takes a quarter of the time.
configure() { cmake -G Ninja -DCMAKE_BUILD_TYPE=Debug -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=0 "$@" >"$work/configure.log" || { cat "$work/configure.log"; exit 1; }; }
build() { cmake --build "$1" -- --quiet; }

# The example prints the workflow state and leaves both files.
check() {
    directory=$work/files-$1
    shift
    said=$("$@" "$directory")
    [ "$said" = "Session 1 of 8" ] || { echo "it said: $said"; exit 1; }
    [ -s "$directory/state.json" ] && [ -s "$directory/agent-state.json" ] || { echo "a file is missing"; exit 1; }
}

if [ "$kind" = folder ]; then
    configure -S "$source/tests/package/consumer" -B "$work/consumer" \
        -DQUILLMERE_FOLDER="$source" -DEXAMPLE="$source/examples/first_session.cpp"
    build "$work/consumer"
    check folder "$work/consumer/first_session"
    exit 0
fi

prefix=$work/installed
configure -S "$source" -B "$work/library" -DQUILLMERE_BUILD_PROGRAM=OFF -DQUILLMERE_BUILD_TESTS=OFF
build "$work/library"
# Installs to a prefix other than the configured one.
cmake --install "$work/library" --prefix "$prefix" >"$work/install.log"

configure -S "$source/tests/package/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$prefix" \
    -DEXAMPLE="$source/examples/first_session.cpp"
build "$work/consumer"
check cmake "$work/consumer/first_session"

# by_pkg_config NAME DIRECTORY: builds the example with the flags that pkg-config finds in DIRECTORY, and
# checks it.
by_pkg_config()
{
    # shellcheck disable=SC2046 # the flags are words
    ${CXX:-g++} -std=c++20 "$source/examples/first_session.cpp" \
        $(PKG_CONFIG_PATH=$2/pkgconfig pkg-config --cflags --libs QuillmereCore) -o "$work/$1"
    check "$1" "$work/$1"
}
by_pkg_config pkg-config "$(dirname "$(find "$prefix" -name 'libQuillmereCore.*')")"

# Libraries may be in another directory than the headers. The compiled files are reused.
cmake "$work/library" -DCMAKE_INSTALL_PREFIX="$work/headers" -DCMAKE_INSTALL_LIBDIR="$work/libraries" >"$work/separate.log"
cmake --install "$work/library" >>"$work/separate.log"
by_pkg_config separate "$work/libraries"

# Every installed header compiles by itself, with only the package.
find "$prefix/include" -name '*.hpp' | while read -r header; do
    ${CXX:-g++} -std=c++20 -fsyntax-only -I"$prefix/include" -x c++ "$header" || exit 1
done

# The package contains no private header.
if find "$prefix/include" -name '*.hpp' -exec grep -l simdjson {} + ; then
    echo "a public header names the JSON library"
    exit 1
fi
