# The words that fish offers at the end of each line: candidates.fish PREFIX <LINES
while read -l line
    # A tab and a description follow each word.
    echo (complete -C "$line" | string split -f 1 \t)
end
