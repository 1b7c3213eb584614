#!/bin/sh
# One command builds the packages. build_packages.sh SOURCE WORK
# With clang, so that one build also finds what clang warns about in the library and the program.
set -eu
. "$(dirname "$0")/needs.sh"
needs dpkg-shlibdeps
rm -rf "$2/packages"
# A path relative to the caller's directory.
mkdir -p "$2"
cd "$2"
CXX=clang++ "$1/script/package" ../"$(basename "$2")" -DCMAKE_CXX_FLAGS=-O0 -DQUILLMERE_WARNINGS_ARE_ERRORS=ON
for package in libquillmerecore1 libquillmerecore-dev quillmere; do
    [ "$(find "$2/packages" -name "${package}_*.deb" | wc -l)" = 1 ] || { echo "$package has not been built"; exit 1; }
done
