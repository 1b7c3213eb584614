#!/bin/sh
# The desktop entries, the icon and the unit are well-formed, and run existing commands.
# desktop.sh WORK DESTINATION PREFIX
set -eu
here=$(dirname "$0")
. "$here/needs.sh"
. "$here/help.sh"
needs desktop-file-validate rsvg-convert systemd-analyze man
work=$1
destination=$2
prefix=$3
program=$prefix/bin/quillmere
status=0
complain() { echo "$*"; status=1; }
rm -rf "$work"
mkdir -p "$work"

for entry in "$prefix"/share/applications/*.desktop; do
    said=$(desktop-file-validate "$entry" 2>&1) || complain "$entry: $said"
    [ -z "$said" ] || complain "$said"
    icon=$(sed -n 's/^Icon=//p' "$entry")
    [ -f "$prefix/share/icons/hicolor/scalable/apps/$icon.svg" ] || complain "$entry has no icon"
done
[ "$(grep -l '^MimeType=x-scheme-handler/quillmere;$' "$prefix"/share/applications/*.desktop | wc -l)" = 1 ] ||
    complain "not exactly one entry opens links"

for size in 16 48 256; do
    rsvg-convert -w $size -h $size "$prefix/share/icons/hicolor/scalable/apps/quillmere.svg" -o "$work/$size.png" ||
        complain "the icon cannot be drawn"
done

# The unit contains the final path of the program, which is below the destination here.
unit=$work/quillmere-watch.service
sed "s|^ExecStart=|ExecStart=$destination|" "$prefix/lib/systemd/user/quillmere-watch.service" >"$unit"
said=$(MANPATH=$prefix/share/man XDG_RUNTIME_DIR=$work systemd-analyze --user verify "$unit" 2>&1) ||
    complain "the unit: $said"
# systemd-analyze also reads the machine's own units, whose errors do not matter here.
echo "$said" | grep -F quillmere && complain "the unit has faults"

commands=" $(commands_below "" | tr '\n' ' ')"
for line in $(grep -hE '^Exec(Start)?=' "$prefix"/share/applications/*.desktop "$unit" | cut -d= -f2- | tr ' ' '+'); do
    command=$(echo "$line" | cut -s -d+ -f2)
    case $commands in *" ${command:-status} "*) ;; *) complain "there is no command $command" ;; esac
done
exit $status
