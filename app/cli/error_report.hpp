// Reports the error that ends a run.
#pragma once

#include "cli/exit_code.hpp"

#include <string>

namespace quillmere::cli {

class Program;

/// Prints a message to the error stream: a sentence, or with --json an object with the name of the code and
/// the events that the run recorded. Returns the code.
ExitCode reportError(ExitCode code, const std::string& message, Program& program);

/// Reports the exception that is being handled. To be called in a handler for `std::exception`; rethrows
/// exceptions that no command is meant to throw.
ExitCode reportCurrentException(Program& program);

}  // namespace quillmere::cli
