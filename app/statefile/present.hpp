// The present, read from a state file without the years before it.
#pragma once

#include "base/recent_blocks.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <filesystem>
#include <optional>

namespace quillmere::statefile {

/// The saved state, but of its questions only the open ones and of its history only the blocks within reach.
/// Reads the questions, these blocks and what follows the history; not the blocks between, which may hold
/// anything.
///
/// Absent when what it reads is not as StateStore writes it, or cannot be read: the file is then to be loaded
/// whole, which also says what is wrong. Throws `std::bad_alloc`.
std::optional<QuillmereState> readPresent(const std::filesystem::path& file, base::Reach reach, Instant now);

}  // namespace quillmere::statefile
