#!/bin/sh
# The arguments that script/run passes to the program. run_script.sh SOURCE
# Runs a copy of the script with a stub for the build and a program that prints its arguments.
set -eu
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
mkdir -p "$place/root/script" "$place/root/build/release/bin" "$place/tools" "$place/home" "$place/data"
cp "$1/script/run" "$place/root/script/run"
printf '#!/bin/sh\n' | tee "$place/root/script/bootstrap" >"$place/tools/cmake"
printf '#!/bin/sh\necho "words: $*"\n' >"$place/root/build/release/bin/quillmere"
chmod +x "$place/root/script/bootstrap" "$place/tools/cmake" "$place/root/build/release/bin/quillmere"
PATH=$place/tools:$PATH
cd "$place"
status=0

# expect RULE WORDS COMMAND...: compares the program's arguments with WORDS after running the command.
expect() {
    rule=$1
    words=$2
    shift 2
    answer=$("$@") || true
    [ "$answer" = "words: $words" ] || { echo "script/run $rule: $answer"; status=1; }
}

keep() { mkdir -p "$1/Quillmere" && touch "$1/Quillmere/state.json"; }

run=$place/root/script/run
expect "passes its arguments on" "history --limit 3" env -u XDG_DATA_HOME HOME="$place/home" "$run" history --limit 3
expect "starts with a tour" "tour" env -u XDG_DATA_HOME HOME="$place/home" "$run"
expect "just runs the program where there is no home" "" env -u XDG_DATA_HOME -u HOME "$run"
keep "$place/relative"
expect "does not count a relative directory for data" "tour" env XDG_DATA_HOME=relative HOME="$place/home" "$run"
keep "$place/home/.local/share"
expect "finds what is kept at home" "" env -u XDG_DATA_HOME HOME="$place/home" "$run"
expect "prefers the directory for data" "tour" env XDG_DATA_HOME="$place/data" HOME="$place/home" "$run"
keep "$place/data"
expect "finds what is kept in the directory for data" "" env -u HOME XDG_DATA_HOME="$place/data" "$run"
ln -s "$run" "$place/tools/work"
expect "may be called by a link" "status" env HOME="$place/home" "$place/tools/work" status
exit $status
