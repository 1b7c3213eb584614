#!/bin/sh
# Functions that the compiled library must not call. forbidden_symbols.sh LIBRARY SOURCE
# The lower folders use no stream, no formatted output, no clock and no file; nothing uses a locale.
set -eu
library=$1
source=$2
status=0

# undefined OBJECT: the undefined symbols of one object of the library.
undefined() { nm -C --undefined-only "$library" | awk -v object="$1:" '$0 == object {on = 1; next} /^$/ {on = 0} on'; }

# The object of each file: its own or, in builds that compile a folder at once, that of its folder.
# fatal_error writes its message to standard error.
objects=" $(nm --undefined-only "$library" 2>/dev/null | sed -n 's/^\(.*\.o\):$/\1/p' | tr '\n' ' ')"
lower=
for file in $(cd "$source/core" && find records engine -name '*.cpp' ! -name fatal_error.cpp); do
    own=${file##*/}.o
    shared=unity_${file%%/*}_cxx.cxx.o
    case $objects in
        *" $own "*) lower="$lower $own" ;;
        *" $shared "*) lower="$lower $shared" ;;
        *) echo "no object of the library is known to hold core/$file"; status=1 ;;
    esac
done
[ -n "$lower" ] || { echo "no file of the lower folders was found in $source/core"; status=1; }

forbidden='printf|fopen|fwrite|fputs|std::basic_(o|i|f)?stream|std::ios_base|std::cout|std::cerr|clock_gettime|gettimeofday|std::chrono::_V2|system_clock::now| time$| open(64)?$| write$| read$| stat(64)?$|std::filesystem|getenv'
for object in $(printf '%s\n' $lower | sort -u); do
    if undefined "$object" | grep -E "$forbidden"; then
        echo "$object calls functions that the lower folders must not use"
        status=1
    fi
done

if nm -C --undefined-only "$library" | grep -E 'setlocale|localeconv|std::locale|strtod|stod|std::to_string\(double'; then
    echo "the library depends on the locale"
    status=1
fi
exit $status
