# The words that bash offers at the end of each line: candidates.bash PREFIX <LINES. bash-completion loads the
# completion at the first line, as it does for a user.
. /usr/share/bash-completion/bash_completion
__load_completion quillmere || { echo "bash-completion does not find the completion" >&2; exit 1; }

# Splits a line into COMP_WORDS as bash does: at spaces and equals signs that are not quoted.
split()
{
    local rest=$1 piece="'[^']*'|\"([^\"\\]|\\\\.)*\"|\\\\.|[^ ='\"\\]"
    COMP_WORDS=()
    while [[ $rest =~ ^\ *(=|($piece)+) ]]; do
        COMP_WORDS+=("${BASH_REMATCH[1]}")
        rest=${rest:${#BASH_REMATCH[0]}}
    done
    [[ $rest == " " ]] && COMP_WORDS+=("")
}

while IFS= read -r line; do
    split "$line"
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _quillmere quillmere "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    echo "${COMPREPLY[*]}"
done
