#!/bin/sh
# The protocol knows nothing of focus work, and the tools nothing of messages: includes.sh FOLDER
set -eu
cd "$1"
status=0
[ -e protocol/message.hpp ] && [ -e tools.cpp ] || { echo "nothing to look at"; exit 1; }

if grep -nE '^#include ("|<quillmere/)' protocol/* | grep -v '"agent/protocol/'; then
    echo "the protocol includes what is not its own"
    status=1
fi
# The door brings both together.
if grep -nE '^#include "agent/protocol/' ./*.?pp | grep -vE '^./door\.|"agent/protocol/(offer|changes)\.hpp"'; then
    echo "a tool includes messages"
    status=1
fi
exit $status
