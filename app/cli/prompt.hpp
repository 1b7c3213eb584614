// Asks a person, where there is one.
#pragma once

#include "base/environment.hpp"

#include <functional>
#include <string>

namespace quillmere::cli {

/// Puts a question on the channel for messages, again as long as what is typed is no text, and returns
/// the line. Throws ProgramError at the end of the input: nobody may be taken to have answered then.
std::string ask(base::Environment& environment, const std::string& question);

/// Asks until `accepts` says yes to the line; one slip must not lose the answers before it.
std::string askUntil(base::Environment& environment, const std::string& question,
                     const std::function<bool(const std::string&)>& accepts);

}  // namespace quillmere::cli
