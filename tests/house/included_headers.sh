#!/bin/sh
# Headers that a folder must not include, independent of its layer (floors.py). included_headers.sh SOURCE
set -eu
cd "$1"
status=0

# records and engine use no file, no clock and no stream.
if grep -rnE '#include <(chrono|ctime|filesystem|fstream|iostream|sstream|ostream|unistd.h|fcntl.h|sys/stat.h|time.h)>' \
    core/records core/engine | grep -v 'core/records/json/date_text.cpp:.*<chrono>'; then
    echo "core/records or core/engine uses files, clocks or streams"
    status=1
fi

# The program includes only the installed headers of the library.
for header in $(grep -rhoE '#include <quillmere/[^>]+>' app examples | sed -E 's/.*<quillmere\/(.*)>/\1/' | sort -u); do
    grep -qE "^    $header\$" core/CMakeLists.txt || { echo "app includes $header, which is not public"; status=1; }
done
exit $status
