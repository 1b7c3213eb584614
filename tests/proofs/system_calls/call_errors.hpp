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

/// The same in the long form of the proof; in the short one two of them, others for each ordinal (the number
/// of the call among those of its name), so that the calls of a save meet most errors between them.
std::vector<int> chosenErrorsOf(SystemCall call, std::size_t ordinal);

/// "ENOSPC", or the number.
std::string nameOfError(int error);

}  // namespace quillmere::test
