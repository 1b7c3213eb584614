# Sourced: reads the commands and options of $program from its help.

# part HEADING COMMAND: the lines under a heading of the command's help.
part()
{
    # shellcheck disable=SC2086 # the command is words
    "$program" $2 --help | awk -v heading="$1:" '$0 == heading {on = 1; next} /^[^ ]/ {on = 0} on'
}

# options COMMAND: the names of its own options, one per line.
options() { part Options "$1" | sed -nE 's/^  (-[^ ]*).*/\1/p' | tr ',' '\n'; }

# commands_in COMMAND: the direct subcommands.
commands_in() { part Subcommands "$1" | sed -nE 's/^  ([a-z][^ ]*).*/\1/p'; }

# commands_below COMMAND: all subcommands at every depth, such as "break extend".
commands_below()
{
    for name in $(commands_in "$1"); do
        echo "${1:+$1 }$name"
        (commands_below "${1:+$1 }$name")
    done
}
