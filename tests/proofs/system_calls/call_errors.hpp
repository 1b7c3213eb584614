// What each call may fail with.
#pragma once

#include <vector>

#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

/// A number that no system gives and that has no name.
inline constexpr int unknownError = 4000;

/// Every error that the manuals of Linux or POSIX name for a call of these arguments, with those that file
/// systems of other makers add; the commonest first. A rename may also give the unknown one.
const std::vector<int>& errorsOf(SystemCall call);

/// The same in the long form of the proof; in the short one the first few, and an interruption.
std::vector<int> chosenErrorsOf(SystemCall call);

/// "ENOSPC", or the number.
std::string nameOfError(int error);

}  // namespace quillmere::test
