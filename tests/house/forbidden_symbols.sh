#!/bin/sh
# Functions that the compiled library must not call. forbidden_symbols.sh LIBRARY
# The lower folders use no stream, no formatted output, no clock and no file; nothing uses a locale.
set -eu
library=$1
status=0

# undefined OBJECT: the undefined symbols of one object of the library.
undefined() { nm -C --undefined-only "$library" | awk -v object="$1:" '$0 == object {on = 1; next} /^$/ {on = 0} on'; }

# fatal_error writes its message to standard error.
lower='block|bytes|checked_arithmetic|identifier|quillmere_state|record_coding|session_plan|coding_error|date_text|number_text|reader|utf8|writer|block_operations|break_operations|focus_operations|question_operations|schedule_operations|timer_coding|timer_snapshot|workflow_error'
forbidden='printf|fopen|fwrite|fputs|std::basic_(o|i|f)?stream|std::ios_base|std::cout|std::cerr|clock_gettime|gettimeofday|std::chrono::_V2|system_clock::now| time$| open(64)?$| write$| read$| stat(64)?$|std::filesystem|getenv'
found=0
for object in $(nm --undefined-only "$library" 2>/dev/null | sed -nE "s/^(($lower)\.cpp\.o):\$/\1/p"); do
    found=$((found + 1))
    if undefined "$object" | grep -E "$forbidden"; then
        echo "$object calls functions that the lower folders must not use"
        status=1
    fi
done
[ "$found" -ge 20 ] || { echo "only $found objects were looked at: the list is out of date"; status=1; }

if nm -C --undefined-only "$library" | grep -E 'setlocale|localeconv|std::locale|strtod|stod|std::to_string\(double'; then
    echo "the library depends on the locale"
    status=1
fi
exit $status
