// The expected result of a fault, derived from the calls of an undisturbed run independently of the library.
#pragma once

#include <vector>

#include "proofs/system_calls/scene.hpp"
#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

struct Expectation {
    int error;                   ///< reported to the caller; 0 when the save succeeds anyway
    std::vector<Version> files;  ///< the versions afterwards
};

/// The expected result of a save in which `fault` hits the call `calls[index]` of an undisturbed save.
Expectation expectedOfSave(const Situation& situation, const std::vector<CallRecord>& calls,
                           std::size_t index, const Fault& fault);

/// Whether POSIX lets a signal interrupt the call without an effect, so that it can be repeated.
bool isContinued(SystemCall call);

}  // namespace quillmere::test
