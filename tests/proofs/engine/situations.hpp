// Every situation that a call may find, and every call that may be made in it.
//
// A situation is one choice on each axis: the workflow state, the block and its sessions, the saved plan, the
// break, the durations in the records, and the clock. Most could not arise in use, but a file may hold any of
// them.
#pragma once

#include <cstdint>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

struct Situation {
    QuillmereState state;
    Instant now;
};

std::uint64_t situationCount();

/// The situation of an index below `situationCount`.
Situation situationAt(std::uint64_t number);

/// The number of argument combinations of an operation.
std::uint64_t argumentCount(Operation operation);

/// The call with the argument combination of an index below `argumentCount`.
Call callAt(Operation operation, std::uint64_t number, Instant now);

}  // namespace quillmere::test
