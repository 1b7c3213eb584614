#!/bin/sh
# What the documents show is what there is. docs_are_true.sh SOURCE PRINT_STATE_MACHINE [PROGRAM]
set -eu
cd "$1"
status=0

"$2" | diff - docs/state-machine.md || { echo "docs/state-machine.md is not what the table says"; status=1; }

# block FILE LANGUAGE NUMBER: the text of one fenced block.
block() { awk -v open="\`\`\`$2" -v number="$3" '$0 == "```" {on = 0} on {print} $0 == open {on = (++count == number)}' "$1"; }

block README.md cpp 1 | diff - examples/first_session.cpp || { echo "README.md shows another program"; status=1; }

if [ $# -ge 3 ]; then
    place=$(mktemp -d)
    tour=$(TZ=UTC "$3" tour "$place/tour") || true
    rm -rf "$place"
    # Lines begin and end where they do in the tour. An empty block would be part of anything.
    shown=$(block README.md text 1)
    line_break='
'
    case $line_break$tour$line_break in
        *"$line_break${shown:-no tour}$line_break"*) ;;
        *) echo "README.md shows a tour that is not played"; status=1 ;;
    esac
fi

for number in 1 2 3; do
    file=$(printf 'state.json\nagent-state.json\nwidget-snapshot.json\n' | sed -n "${number}p")
    # A file has no line break at its end, a fenced block has one.
    { cat "tests/golden/$file"; echo; } >"${TMPDIR:-/tmp}/quillmere-golden-$$"
    block docs/file-formats.md json "$number" | diff - "${TMPDIR:-/tmp}/quillmere-golden-$$" ||
        { echo "docs/file-formats.md shows another $file"; status=1; }
    rm -f "${TMPDIR:-/tmp}/quillmere-golden-$$"
done
exit $status
