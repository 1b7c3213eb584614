// How much a terminal shows on a line.
#pragma once

#include <cstddef>
#include <optional>

namespace quillmere::base {

/// The columns of the terminal on standard output: what the variable COLUMNS says, or the terminal itself;
/// absent where neither does.
std::optional<std::size_t> terminalWidth();

}  // namespace quillmere::base
