// Asks a person, where there is one.
#pragma once

#include "environment.hpp"

#include <string>

namespace quillmere::app {

/// Puts a question on the channel for messages and returns the line that is typed; empty at the end of
/// the input. Throws ProgramError when the line is no text.
std::string ask(Environment& environment, const std::string& question);

}  // namespace quillmere::app
