// Faults for the real program.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "proofs/system_calls/system_calls.hpp"
#include "proofs/system_calls/tracing.hpp"

namespace quillmere::test {

/// The corresponding call of the library; absent for flock.
std::optional<SystemCall> callOf(const TracedCall& call);

/// The errors to try at a call. For a look-up, a missing file is an answer and no fault.
std::vector<int> errorsToTry(const TracedCall& call);

/// Whether a lasting fault can be injected at the call.
bool mayBePermanent(const TracedCall& call);

/// The fault in the syntax of strace.
std::string injectionOf(const TracedCall& call, int error, bool fromThereOn);

}  // namespace quillmere::test
