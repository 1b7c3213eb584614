#!/bin/sh
# The packages can be installed, used and purged, in a separate root. come_and_go.sh SOURCE WORK VERSION
set -eu
. "$(dirname "$0")/needs.sh"
source=$1
packages=$2/packages
version=$3
root=$2/root
# Files of packages belong to root; for an ordinary user, fakeroot simulates that.
if [ "$(id -u)" != 0 ]; then
    needs fakeroot
    exec fakeroot "$0" "$@"
fi
rm -rf "$root"
mkdir -p "$root/var/lib/dpkg/info" "$root/var/lib/dpkg/updates" "$root/var/lib/dpkg/triggers"
# Packages of the machine count as installed, so that dependencies are checked.
cp /var/lib/dpkg/status "$root/var/lib/dpkg/status"

in_root()
{
    dpkg --root="$root" --log="$root/var/log" --force-not-root "$@" >"$root/var/said" 2>&1 ||
        { grep -v 'files list file' "$root/var/said"; exit 1; }
}
state() { dpkg-query --admindir="$root/var/lib/dpkg" -W -f='${Status}' "$1" 2>/dev/null || true; }

in_root --install "$packages"/*.deb
for package in libquillmerecore1 libquillmerecore-dev quillmere; do
    [ "$(state $package)" = "install ok installed" ] || { echo "$package is not installed"; exit 1; }
done

libraries=$(dirname "$(find "$root/usr/lib" -name 'libQuillmereCore.so.1')")
program=$root/usr/bin/quillmere
export LD_LIBRARY_PATH="$libraries"
export PKG_CONFIG_PATH="$libraries/pkgconfig"
[ "$("$program" --version)" = "quillmere $version" ] || { echo "the version differs"; exit 1; }
"$program" --directory "$root/var/files" plan --outcome Outline --start >/dev/null
"$program" --directory "$root/var/files" status | grep -q "Outcome  *Outline" || { echo "the program does not work"; exit 1; }
grep -qx 'ExecStart=/usr/bin/quillmere watch' "$root/usr/lib/systemd/user/quillmere-watch.service" ||
    { echo "the unit starts another program"; exit 1; }
man -M "$root/usr/share/man" -w quillmere >/dev/null || { echo "the manual is not installed"; exit 1; }

# The development files are sufficient to build a program.
# shellcheck disable=SC2046 # the flags are words
g++ -std=c++20 "$source/examples/first_session.cpp" $(pkg-config --cflags --libs QuillmereCore) -o "$root/var/example"
[ "$("$root/var/example" "$root/var/other")" = "Session 1 of 8" ] || { echo "the example prints another text"; exit 1; }
cmake -G Ninja -S "$source/tests/package/consumer" -B "$root/var/consumer" -DCMAKE_PREFIX_PATH="$root/usr" \
    -DEXAMPLE="$source/examples/first_session.cpp" >/dev/null
cmake --build "$root/var/consumer" -- --quiet
[ "$("$root/var/consumer/first_session" "$root/var/third")" = "Session 1 of 8" ] ||
    { echo "the example built by CMake prints another text"; exit 1; }

# No file contains the path of the build directory.
if grep -rlF "$source" "$root/usr"; then
    echo "these files contain the path of the build directory"
    exit 1
fi

in_root --purge quillmere libquillmerecore-dev libquillmerecore1
if find "$root" -mindepth 1 -maxdepth 1 ! -name var | grep .; then
    echo "purging leaves these files"
    exit 1
fi
