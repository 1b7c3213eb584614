// Expects a command to be refused.
#pragma once

#include "program_testing.hpp"

namespace quillmere::test {

/// Expects the message as text and as JSON, the exit code, and unchanged files.
void expectRefusal(const Person& person, const Words& words, const std::string& message,
                   ExitCode code = ExitCode::refused);

}  // namespace quillmere::test
