# The words that bash offers at the end of each line: candidates.bash PREFIX <LINES. bash-completion loads the
# completion at the first line, as it does for a user.
. /usr/share/bash-completion/bash_completion
__load_completion quillmere || { echo "bash-completion does not find the completion" >&2; exit 1; }

while IFS= read -r line; do
    # bash also splits words at the equals sign.
    read -ra COMP_WORDS <<<"${line//=/ = }"
    [[ $line == *" " ]] && COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _quillmere quillmere "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    echo "${COMPREPLY[*]}"
done
