#!/bin/sh
# Compares the documents with the program and the code. docs_are_true.sh SOURCE PRINT_STATE_MACHINE [PROGRAM]
set -eu
cd "$1"
status=0

"$2" | diff - docs/state-machine.md || { echo "docs/state-machine.md differs from the table"; status=1; }

# block FILE LANGUAGE NUMBER: the text of a fenced block.
block() { awk -v open="\`\`\`$2" -v number="$3" '$0 == "```" {on = 0} on {print} $0 == open {on = (++count == number)}' "$1"; }

block README.md cpp 1 | diff - examples/first_session.cpp || { echo "README.md shows another program"; status=1; }

if [ $# -ge 3 ]; then
    place=$(mktemp -d)
    tour=$(TZ=UTC "$3" tour "$place/tour") || true
    rm -rf "$place"
    # Compares whole lines of the tour. An empty block would match any tour.
    shown=$(block README.md text 1)
    line_break='
'
    case $line_break$tour$line_break in
        *"$line_break${shown:-no tour}$line_break"*) ;;
        *) echo "README.md shows a tour that differs from the real one"; status=1 ;;
    esac
fi

if [ $# -ge 3 ]; then
    # The example of the configuration sets every key, and nothing is wrong with it.
    place=$(mktemp -d)
    mkdir "$place/quillmere"
    block README.md toml 1 >"$place/quillmere/config.toml"
    XDG_CONFIG_HOME=$place "$3" --directory "$place" config >"$place/out" 2>"$place/err" || true
    if [ -s "$place/err" ] || grep -q '  # default$' "$place/out" || ! grep -q '^template\.report\.cycles' "$place/out"; then
        echo "README.md shows a configuration that does not set every key:"
        cat "$place/err"
        grep '  # default$' "$place/out" || true
        status=1
    fi
    rm -rf "$place"
fi

# "Set back during a session" is the row of the test setBackDuringASession.
rows=$(sed -n 's/^| \(Set [^|]*[^ |]\) *|.*/\1/p' docs/clocks.md | sed -E 's/ (.)/\U\1/g; s/^(.)/\l\1/')
tests=$(sed -n 's/^TEST_F(Clocks, \(.*\))$/\1/p' tests/app/cli/clocks_test.cpp)
if [ -z "$tests" ] || [ "$rows" != "$tests" ]; then
    echo "docs/clocks.md has other rows than there are tests:"
    printf '%s\n' "$rows" >"${TMPDIR:-/tmp}/quillmere-rows-$$"
    printf '%s\n' "$tests" | diff "${TMPDIR:-/tmp}/quillmere-rows-$$" - || true
    rm -f "${TMPDIR:-/tmp}/quillmere-rows-$$"
    status=1
fi

for number in 1 2 3; do
    file=$(printf 'state.json\nagent-state.json\nwidget-snapshot.json\n' | sed -n "${number}p")
    # A fenced block ends with a line break, the file does not.
    { cat "tests/golden/$file"; echo; } >"${TMPDIR:-/tmp}/quillmere-golden-$$"
    block docs/file-formats.md json "$number" | diff - "${TMPDIR:-/tmp}/quillmere-golden-$$" ||
        { echo "docs/file-formats.md shows another $file"; status=1; }
    rm -f "${TMPDIR:-/tmp}/quillmere-golden-$$"
done
exit $status
