#!/bin/sh
# The protocol includes only itself and base, and the tools include no messages: includes.sh FOLDER
set -eu
cd "$1"
status=0
[ -e protocol/message.hpp ] && [ -e tools.cpp ] || { echo "nothing to look at"; exit 1; }

if grep -nE '^#include ("|<quillmere/)' protocol/* | grep -vE '"(agent/protocol|base)/'; then
    echo "the protocol includes a file of focus work"
    status=1
fi
# Only the door includes both.
if grep -nE '^#include "agent/protocol/' ./*.?pp | grep -vE '^./door\.|"agent/protocol/(offer|changes)\.hpp"'; then
    echo "a tool includes messages"
    status=1
fi
exit $status
