// The errors that each call may fail with.
#pragma once

#include <vector>

#include "proofs/system_calls/system_calls.hpp"

namespace quillmere::test {

/// An error number without a name, which no system returns.
inline constexpr int unknownError = 4000;

/// Every error that the manuals of Linux or POSIX document for a call with these arguments, and those that
/// other file systems add; the commonest first. A rename may also fail with `unknownError`.
const std::vector<int>& errorsOf(SystemCall call);

/// All of these errors in the long form. Two of them in the short form, chosen by the ordinal (the index of
/// the call among the calls of its name), so that the calls of a save together cover most errors.
std::vector<int> chosenErrorsOf(SystemCall call, std::size_t ordinal);

/// "ENOSPC", or the number.
std::string nameOfError(int error);

}  // namespace quillmere::test
