#!/bin/sh
# Has the official clients of the protocol talk to the program: run.sh PROGRAM PLACE
# They are installed into PLACE, in the versions of package-lock.json. Without node, npm or a registry the test
# is skipped, and says why.
set -eu
program=$1
place=$2
source=$(cd "$(dirname "$0")" && pwd)
# What the clients need.
oldest_node=20

skip() { echo "Skipped: $*"; exit 0; }
command -v node >/dev/null || skip "there is no node"
command -v npm >/dev/null || skip "there is no npm"
[ "$(node -p 'parseInt(process.versions.node)')" -ge $oldest_node ] || skip "node is older than $oldest_node"

mkdir -p "$place"
if ! cmp -s "$source/package-lock.json" "$place/installed"; then
    rm -f "$place/installed"
    cp "$source/package.json" "$source/package-lock.json" "$source/.npmrc" "$place"
    if ! (cd "$place" && npm ci --ignore-scripts --no-audit --no-fund --loglevel=error) >"$place/npm.log" 2>&1; then
        (cd "$place" && npm view zod version >/dev/null 2>&1) || skip "npm cannot reach its registry"
        cat "$place/npm.log"
        exit 1
    fi
    cp "$source/package-lock.json" "$place/installed"
fi
cp "$source"/*.mjs "$place"
cd "$place"
exec node main.mjs "$program"
