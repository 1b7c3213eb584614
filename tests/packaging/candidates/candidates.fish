# The words that fish offers at the end of each line, as it would insert them: candidates.fish PREFIX <LINES
while read -l line
    # A tab and a description follow each word.
    echo (complete -C "$line" | string split -f 1 \t | string escape --no-quoted)
end
