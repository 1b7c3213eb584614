# What zsh offers at the end of each line: candidates.zsh PREFIX <LINES
# An interactive zsh on a terminal of its own completes: a key inserts all that is offered, another one sends what
# then stands on the line.
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
    # All but the words before the last one; nothing where nothing is offered, as the line then stays as it was.
    if ((count > 0)); then print -r -- "${answer#"${line% *} "}"; else print; fi
    # What the terminal shows is not looked at, but has to be taken from it.
    while zpty -r -t shell shown; do :; done
done
