#!/bin/sh
# lintian reports no error and no warning. lintian.sh WORK
set -eu
. "$(dirname "$0")/needs.sh"
needs lintian
as_root=
[ "$(id -u)" != 0 ] || as_root=--allow-root
lintian $as_root --fail-on error,warning "$1"/packages/*.deb
