// The width of the terminal.
#pragma once

#include <cstddef>
#include <optional>

namespace quillmere::base {

/// The columns of the terminal on standard output: from the variable COLUMNS, or else from the terminal.
/// Absent when neither says.
std::optional<std::size_t> terminalWidth();

}  // namespace quillmere::base
