#!/bin/sh
# What one command needs is not loaded by all others: the program is linked neither to curses, nor to libedit,
# nor to the session bus. loaded_libraries.sh PROGRAM
set -eu
libraries=$(objdump -p "$1" | sed -n 's/^ *NEEDED *//p')
[ -n "$libraries" ]
! printf '%s\n' "$libraries" | grep -E '^lib(ncurses|tinfo|edit|sdbus|systemd|canberra)'
