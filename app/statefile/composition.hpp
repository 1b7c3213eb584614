// A state file put together from a state and runs of an older file.
#pragma once

#include "statefile/kept_part.hpp"

#include <string>
#include <variant>
#include <vector>

namespace quillmere::statefile {

/// Texts and runs of the older file, in order.
using Composition = std::vector<std::variant<std::string, Run>>;

/// The file of `state` with a run of questions before each of its questions, as far as there are runs, the
/// last run after them, and `blocks` after its blocks.
Composition compose(const QuillmereState& state, const std::vector<Run>& questions, Run blocks);

/// Writes a composition to an empty file. The runs are copied by the system (copy_file_range(2)), which may
/// share their blocks. Throws `std::system_error`.
void write(const Composition& composition, const OpenFile& older, const std::filesystem::path& file);

}  // namespace quillmere::statefile
