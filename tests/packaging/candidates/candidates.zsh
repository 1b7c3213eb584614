# The words that zsh offers at the end of each line: candidates.zsh PREFIX <LINES. An interactive zsh on a
# pseudo-terminal completes: one key inserts all offered words, another key prints the line.
zmodload zsh/zpty
reports=$(mktemp -u)
mkfifo $reports
exec 3<>$reports

zpty -b shell zsh -f -i
trap 'zpty -d shell; rm -f $reports' EXIT
zpty -w shell "reports=$reports; prefix=$1; source ${0:A:h}/interactive.zsh"
read -r ready <&3

while IFS= read -r line; do
    zpty -w -n shell "$line"$'\t\x14'
    IFS= read -r count <&3
    IFS= read -r answer <&3
    # Removes the words of the original line except the last. Nothing remains if no word was offered, because
    # the line is unchanged then.
    if ((count > 0)); then print -r -- "${answer#"${line% *} "}"; else print; fi
    # The output of the terminal is ignored, but must be read so that zsh does not block.
    while zpty -r -t shell shown; do :; done
done
