# What bash offers at the end of each line: candidates.bash PREFIX <LINES
# Found by bash-completion when the first line is completed, as it is for a person.
. /usr/share/bash-completion/bash_completion
__load_completion quillmere || { echo "bash-completion does not find the completion" >&2; exit 1; }

while IFS= read -r line; do
    # Words as bash has them: cut at the equals sign.
    read -ra COMP_WORDS <<<"${line//=/ = }"
    [[ $line == *" " ]] && COMP_WORDS+=("")
    COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
    COMPREPLY=()
    _quillmere quillmere "${COMP_WORDS[COMP_CWORD]}" "${COMP_WORDS[COMP_CWORD - 1]}"
    echo "${COMPREPLY[*]}"
done
