// Every situation that a call may find, and every call that may be made in it.
//
// A situation is one choice on each axis: the workflow state, the block and its sessions, the saved plan,
// the break, the lengths of time that the records hold, and where the clock stands. Most could not arise
// in use; a file may hold any of them.
#pragma once

#include <cstdint>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

struct Situation {
    QuillmereState state;
    Instant now;
};

std::uint64_t situationCount();

/// The situation of a number below `situationCount`.
Situation situationAt(std::uint64_t number);

/// In how many ways an operation may be called.
std::uint64_t argumentCount(Operation operation);

/// The call with the arguments of a number below `argumentCount`.
Call callAt(Operation operation, std::uint64_t number, Instant now);

}  // namespace quillmere::test
