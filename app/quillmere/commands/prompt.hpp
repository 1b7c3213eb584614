// Asks a person, where there is one.
#pragma once

#include "environment.hpp"

#include <functional>
#include <string>

namespace quillmere::app {

/// Puts a question on the channel for messages, again as long as what is typed is no text, and returns
/// the line. Throws ProgramError at the end of the input: nobody may be taken to have answered then.
std::string ask(Environment& environment, const std::string& question);

/// Asks until `accepts` says yes to the line; one slip must not lose the answers before it.
std::string askUntil(Environment& environment, const std::string& question,
                     const std::function<bool(const std::string&)>& accepts);

}  // namespace quillmere::app
