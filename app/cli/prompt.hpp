// Asks a person at a terminal.
#pragma once

#include "base/environment.hpp"

#include <functional>
#include <string>

namespace quillmere::cli {

/// Writes the question to standard error and returns the line that is typed; asks again while that is not
/// well-formed UTF-8. Throws ProgramError at the end of the input, which is no answer.
std::string ask(base::Environment& environment, const std::string& question);

/// Asks until `require` accepts the line. When it throws work::Unacceptable, prints the reason and asks
/// again: one slip must not lose the answers before it.
std::string askUntil(base::Environment& environment, const std::string& question,
                     const std::function<void(const std::string&)>& require);

/// Whether the person agrees: "yes" does, and "no" does not; asks again after any other answer.
bool agrees(base::Environment& environment, const std::string& question);

/// Asks the question on a terminal and throws ProgramError (`refused`) unless the person agrees. Without a
/// terminal throws ProgramError (`usage`), which names `--yes`.
void requireAgreement(base::Environment& environment, const std::string& question);

}  // namespace quillmere::cli
