// Runs the program once.
#pragma once

#include "base/environment.hpp"
#include "cli/exit_code.hpp"

#include <string>
#include <vector>

namespace quillmere::cli {

/// Carries out the arguments, which do not include the program's name. Prints results to `out` and messages
/// to `err`.
ExitCode run(const std::vector<std::string>& arguments, base::Environment& environment) noexcept;

}  // namespace quillmere::cli
