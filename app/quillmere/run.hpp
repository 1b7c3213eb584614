// One run of the program.
#pragma once

#include "environment.hpp"
#include "exit_code.hpp"

#include <string>
#include <vector>

namespace quillmere::app {

/// Does what the arguments, without the program's name, ask for. Results go to `out`, messages to
/// `err`. Never throws.
ExitCode run(const std::vector<std::string>& arguments, Environment& environment) noexcept;

}  // namespace quillmere::app
