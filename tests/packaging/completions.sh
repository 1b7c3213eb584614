#!/bin/bash
# Completion offers every command and option in the help and no others, and values where possible.
# completions.sh bash|zsh|fish WORK PREFIX
set -eu
here=$(cd "$(dirname "$0")" && pwd)
. "$here/needs.sh"
. "$here/help.sh"
shell=$1
work=$2
prefix=$3
# shellcheck disable=SC2034 # for help.sh
program=$prefix/bin/quillmere
needs "$shell"
rm -rf "$work"
mkdir -p "$work/place/folder" "$work/home"
touch "$work/place/file"

# rule LINE WORD…: exactly these words must be offered at the end of the line.
rule()
{
    printf '%s\n' "$1" >>"$work/lines"
    shift
    printf '%s\n' "$@" | LC_ALL=C sort -u | xargs >>"$work/expected"
}

# Each row is a typed line and the words to be offered.
rule "quillmere pau" pause
rule "quillmere break " extend end skip
rule "quillmere break e" extend end
rule "quillmere --json break s" skip
rule "quillmere break --json s" skip
rule "quillmere --directory break que" questions # the value of an option is no command
rule "quillmere --directory=break que" questions
rule "quillmere plan --outcome break --wh" --why
rule "quillmere plan --done" --done-test
rule "quillmere plan --dir" --directory
rule "quillmere review --completion " yes half no
rule "quillmere review --completion h" half
rule "quillmere --directory " folder
rule "quillmere --directory f" folder
rule "quillmere status --directory f" folder
rule "quillmere tour " folder
rule "quillmere ask " # nothing: any text
rule "quillmere plan --outcome " # nothing either
rule "quillmere nonsense" # nothing begins so

# shellcheck disable=SC2046 # words
{
    rule "quillmere " $(commands_in "")
    rule "quillmere -" $(options "")
    while read -r command; do
        # Options of the parent commands may follow too; removing the last word repeatedly gives all parents.
        understood=$(options "" && options "$command")
        above=$command
        while [[ $above == *" "* ]]; do
            above=${above% *}
            understood+=$'\n'$(options "$above")
        done
        rule "quillmere $command -" $understood
    done < <(commands_below "")
}

case $shell in
    bash) run=(bash --noprofile --norc) ;;
    zsh) run=(zsh -f) ;;
    fish) run=(fish) ;;
esac
# The home directory has no settings, so the shell finds the installed completion.
cd "$work/place"
env -u BASH_COMPLETION_USER_DIR HOME="$work/home" XDG_CONFIG_HOME="$work/home" XDG_DATA_HOME="$work/home" \
    XDG_DATA_DIRS="$prefix/share" PATH="$prefix/bin:$PATH" TERM=xterm LC_ALL=C.UTF-8 \
    "${run[@]}" "$here/candidates/candidates.$shell" "$prefix" <"$work/lines" >"$work/answers"

# A directory may end with its slash, and an option with the equals sign before its value.
while read -r answer; do
    tr ' ' '\n' <<<"$answer" | sed -E 's|[/=]$||' | LC_ALL=C sort -u | xargs
done <"$work/answers" >"$work/offered"

[[ $(wc -l <"$work/lines") -ge 40 ]] || { echo "the help names too few commands"; exit 1; }
if ! diff <(paste -d'>' "$work/lines" "$work/expected") <(paste -d'>' "$work/lines" "$work/offered"); then
    echo "$shell does not offer what it should (<), but something else (>)"
    exit 1
fi
