#!/bin/sh
# core/quillmere.hpp includes every installed header, and no other. umbrella_header.sh SOURCE
set -eu
cd "$1"

directory=$(mktemp -d)
trap 'rm -rf "$directory"' EXIT
sed -n '/^set(public_headers/,/^)/s/^    //p' core/CMakeLists.txt | grep -v '^quillmere.hpp$' | sort >"$directory/installed"
sed -nE 's/^#include <quillmere\/(.*)>$/\1/p' core/quillmere.hpp | sort >"$directory/included"
[ -s "$directory/installed" ] || { echo "no public header found in core/CMakeLists.txt"; exit 1; }
diff "$directory/installed" "$directory/included" || { echo "core/quillmere.hpp differs from the installed headers"; exit 1; }
