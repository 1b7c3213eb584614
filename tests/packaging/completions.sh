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
mkdir -p "$work/place/folder" "$work/home/quillmere"
touch "$work/place/file"
cd "$work/place"

# The home directory has no settings of a shell, so the shell finds the installed completion.
at_home()
{
    env -u BASH_COMPLETION_USER_DIR HOME="$work/home" XDG_CONFIG_HOME="$work/home" XDG_DATA_HOME="$work/home" \
        XDG_STATE_HOME="$work/home/state" XDG_DATA_DIRS="$prefix/share" PATH="$prefix/bin:$PATH" TERM=xterm \
        LC_ALL=C.UTF-8 "$@"
}

# The words of a person, which do harm where a shell evaluates them.
# shellcheck disable=SC2016 # on purpose
hostile='$(>executed)`>executed`;>executed "a'\''b\c:d'
# A directory of such a name, and its name between single quotation marks.
# shellcheck disable=SC2016 # on purpose
odd='../odd a$c`>executed`$(touch executed)"e:f'
{
    echo "[template.report]"
    echo "cycles = 2"
    sed 's/[\"]/\\&/g; s/.*/[template."&"]/' <<<"$hostile"
    echo "cycles = 3"
} >"$work/home/quillmere/config.toml"
{
    at_home quillmere plan --start --cycles 1 --outcome "$hostile"
    at_home quillmere focus --energy 3 --morale 3 --outcome "$hostile"
    at_home quillmere end
    at_home quillmere review --completion yes
    at_home quillmere reflect --output "$hostile"
    at_home quillmere ask "$hostile"
    at_home quillmere ask "Which figure first?"
    at_home quillmere --directory folder ask "$hostile"
    for number in 1 2 3 4; do at_home quillmere --directory "$odd" ask "$number?"; done
    for number in 1 2 3; do at_home quillmere --directory "$work/home/other" ask "$number?"; done
} >"$work/said" 2>&1 || { cat "$work/said"; exit 1; }
read -r day _ block _ < <(at_home quillmere history)
versions=$(at_home quillmere restore | sed -nE 's/^([0-9]+) .*/\1/p')

# rule LINE WORD…: exactly these words must be offered at the end of the line.
rule()
{
    printf '%s\n' "$1" >>"$work/lines"
    shift
    printf '%s\n' "$@" | LC_ALL=C sort -u | paste -sd'>' >>"$work/expected"
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

# What the files and the configuration of the person hold.
spans=(today yesterday monday tuesday wednesday thursday friday saturday sunday week month 7d 30d "${day%-*}")
rule "quillmere delete " "$block"
rule "quillmere delete ${block:0:2}" "$block"
rule "quillmere amend " "$block" "$block.1"
rule "quillmere answer " 1 2
rule "quillmere answer --json " 1 2
rule "quillmere answer 1 " # any text
rule "quillmere plan --like " last report "$hostile" "$block"
rule "quillmere plan --like r" report
rule "quillmere report --since " "${spans[@]}" "last week" "last month"
rule "quillmere report --until las" "last week" "last month"
rule "quillmere report " "${spans[@]}" last
rule "quillmere history last " week month
rule "quillmere history last w" week
rule "quillmere config clo" clock
rule "quillmere config --unset block." block.focus block.break block.cycles
rule "quillmere config clock " # any text
rule "quillmere help break " extend end skip
rule "quillmere help break e" extend end
rule "quillmere --directory folder answer " 1
rule "quillmere --directory=folder answer " 1
rule "quillmere answer --directory folder " 1
rule "quillmere --directory ~/other answer " 1 2 3
rule "quillmere --directory '$odd' answer " 1 2 3 4
rule "quillmere --directory='$odd' answer " 1 2 3 4
rule "quillmere answer --directory '$odd' " 1 2 3 4
rule "quillmere --directory $(sed 's/[^a-z]/\\&/g' <<<"$odd") answer " 1 2 3 4
rule "quillmere --directory '../od'\"d \"'${odd#* }' answer " 1 2 3 4
if [[ $shell != fish ]]; then # in which a backtick has no meaning, and keeps its backslash
    rule "quillmere --directory \"$(sed 's/[$`"]/\\&/g' <<<"$odd")\" answer " 1 2 3 4
fi
# shellcheck disable=SC2016 # on purpose
rule 'quillmere --directory $(>executed) answer ' # it would have to be evaluated
# shellcheck disable=SC2016 # on purpose
rule 'quillmere --directory "$(>executed)" answer '

# shellcheck disable=SC2046 # words
{
    rule "quillmere restore " $versions
    rule "quillmere help " $(commands_in "")
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
candidates() { at_home "${run[@]}" "$here/candidates/candidates.$shell" "$prefix"; }
candidates <"$work/lines" >"$work/answers"

# The words are quoted as the shell would insert them. A directory may end with its slash, and an option with the
# equals sign before its value.
while read -r answer; do
    xargs printf '%s\n' <<<"$answer" | sed -E 's|[/=]$||' | LC_ALL=C sort -u | paste -sd'>'
done <"$work/answers" >"$work/offered"

[[ $(wc -l <"$work/lines") -ge 40 ]] || { echo "too few commands were found in the help"; exit 1; }
if ! diff <(paste -d'>' "$work/lines" "$work/expected") <(paste -d'>' "$work/lines" "$work/offered"); then
    echo "$shell offers other words (>) than expected (<)"
    exit 1
fi
if [ -n "$(find "$work" -name executed)" ]; then
    echo "$shell executed what it completes"
    exit 1
fi

# Where bash prints a list and inserts nothing, it shows what a value stands for.
[[ $shell == bash ]] || exit 0
list=$(COMP_TYPE=63 candidates <<<"quillmere delete ")
if [[ $list != "$block  $day "*"  $hostile" ]]; then
    echo "bash lists: $list"
    exit 1
fi
