#!/bin/sh
# The manual pages are well-formed and contain every command, option, exit code, file and environment
# variable.
# manual.sh SOURCE PREFIX
set -eu
here=$(dirname "$0")
. "$here/needs.sh"
. "$here/help.sh"
needs man mandoc
source=$1
pages=$2/share/man
program=$2/bin/quillmere
status=0
complain() { echo "$*"; status=1; }

for page in "$pages"/man*/*.gz; do
    mandoc -T lint -W warning "$page" || complain "$page: mandoc reports problems"
    said=$(LC_ALL=C.UTF-8 MANROFFSEQ='' man --warnings -l "$page" 2>&1 >/dev/null)
    [ -z "$said" ] || complain "$page: $said"
done

# Without overstrikes for bold and underlined letters, and with unbroken lines.
text=$(mandoc -T ascii -O width=1000 "$pages/man1/quillmere.1.gz" | sed 's/.\x08//g')

# section HEADING: the text under a heading of the page.
section() { echo "$text" | awk -v heading="$1" '$0 == heading {on = 1; next} /^[^ ]/ {on = 0} on'; }

# item COMMAND: the text under a command.
item()
{
    section COMMANDS | awk -v command="$1" '
        /^     [^ ]/ {line = substr($0, 6) " "; on = index(line, command " ") == 1} on'
}

expect_options()
{
    for option in $(options "$1"); do
        case $1:$option in
            ?*:-h | ?*:--help) ;; # said once, of all commands
            *) echo "$2" | grep -qE -- "(^ +|, )$option(,| |\$)" || complain "$1 $option is not in the manual" ;;
        esac
    done
}

expect_options "" "$(section OPTIONS)"
count=0
for command in $(commands_below "" | tr ' ' '+'); do
    command=$(echo "$command" | tr '+' ' ')
    found=$(item "$command")
    [ -n "$found" ] || complain "$command is not in the manual"
    expect_options "$command" "$found"
    count=$((count + 1))
done
[ "$count" -ge 20 ] || complain "only $count commands were found in the help"

# Optional parts are in separate brackets: options are possible without arguments, and arguments without
# options.
heads=$(section COMMANDS | grep -E '^     [^ ]')
echo "$heads" | grep -q '\[options\]' || complain "no command has [options]"
! echo "$heads" | grep -E '\[[^]]*[ []' || complain "these brackets contain more than one item"

# squeezed: the text with every run of white space as one space.
squeezed() { tr -s ' \n' '  '; }

# Two documents with the same meaning.
codes=$(section "EXIT STATUS" | squeezed)
rows=$(tr -d '`' <"$source/README.md" | sed -nE 's/^\| ([0-9]+) \| (.*) \|$/\1 \2/p')
[ -n "$rows" ] || complain "README.md has no exit codes"
echo "$rows" | while read -r row; do
    case $codes in *" $row "*) ;; *) echo "this exit code of README.md: $row"; exit 1 ;; esac
done || complain "is not in the manual"

[ -n "$(section FILES | grep -F '/.local/state/quillmere/')" ] || complain "the state directory is not in the manual"
for file in $(sed -nE 's/^\| `([a-z-]+\.json)` \|.*/\1/p' "$source/README.md"); do
    section FILES | grep -qF "/$file" || complain "$file is not in the manual"
done

# Names in capitals that are the first argument of a call, or in a list of names.
for variable in $(grep -rhE '(getenv|isSet|absolutePathIn|userDirectory|variable)\("[A-Z]|const (name|variable) : \{"[A-Z]' "$source/app" --include='*.cpp' |
    grep -oE '"[A-Z_]+"' | tr -d '"' | sort -u); do
    section ENVIRONMENT | grep -qE "^     (.*, )?$variable(,| |\$)" || complain "$variable is not in the manual"
done
exit $status
