// What a fault must lead to: the second statement of the rules, made from the calls of an undisturbed run.
#pragma once

#include <vector>

#include "proofs/system_calls/scene.hpp"
#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

struct Expectation {
    int error;                   ///< that the caller hears of; 0 when the save is done all the same
    std::vector<Version> files;  ///< afterwards
};

/// What a save must lead to when `fault` befalls the call `calls[index]` of an undisturbed save.
Expectation expectedOfSave(const Situation& situation, const std::vector<CallRecord>& calls,
                           std::size_t index, const Fault& fault);

/// Whether POSIX lets a signal interrupt the call so that nothing is done and it may be made again.
bool isContinued(SystemCall call);

}  // namespace quillmere::test
