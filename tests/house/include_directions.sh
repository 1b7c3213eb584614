#!/bin/sh
# Folders depend downwards only: records <- engine <- store <- widget, and the program uses the public
# headers of the library. include_directions.sh SOURCE
set -eu
cd "$1"
status=0

# forbid FOLDER PATTERN: no file of the folder may include what matches.
forbid() {
    if grep -rnE "#include <quillmere/($2)" "core/$1"; then
        echo "core/$1 includes what lies above it"
        status=1
    fi
}
forbid records 'engine|store|widget'
forbid engine 'store|widget'
forbid store 'widget'

# Files, clocks and streams are no matter of the two lower folders.
if grep -rnE '#include <(chrono|ctime|filesystem|fstream|iostream|sstream|ostream|unistd.h|fcntl.h|sys/stat.h|time.h)>' \
    core/records core/engine | grep -v 'core/records/json/date_text.cpp:.*<chrono>'; then
    echo "core/records or core/engine knows files, clocks or streams"
    status=1
fi

# What the program includes of the library is what gets installed.
for header in $(grep -rhoE '#include <quillmere/[^>]+>' app examples | sed -E 's/.*<quillmere\/(.*)>/\1/' | sort -u); do
    grep -qE "^    $header\$" core/CMakeLists.txt || { echo "app includes $header, which is not public"; status=1; }
done
exit $status
