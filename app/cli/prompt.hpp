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

/// Asks for a yes or no; any other answer than "yes" is a no. Without a terminal throws ProgramError, which
/// names the purpose of saying --yes: "replace the current state".
bool isAgreed(base::Environment& environment, const std::string& question, const std::string& purpose);

}  // namespace quillmere::cli
