# What fish offers at the end of each line: candidates.fish PREFIX <LINES
while read -l line
    # Each with a description after a tab.
    echo (complete -C "$line" | string split -f 1 \t)
end
