// One run of the program.
#pragma once

#include "base/environment.hpp"
#include "cli/exit_code.hpp"

#include <string>
#include <vector>

namespace quillmere::cli {

/// Does what the arguments, without the program's name, ask for. Results go to `out`, messages to
/// `err`. Never throws.
ExitCode run(const std::vector<std::string>& arguments, base::Environment& environment) noexcept;

}  // namespace quillmere::cli
