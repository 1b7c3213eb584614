// The present, read from a state file without the years before it.
#pragma once

#include "base/reach.hpp"
#include "statefile/kept_part.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <filesystem>
#include <optional>

namespace quillmere::statefile {

/// The saved state, but of its history only the blocks within reach, and of its questions only the open and
/// the recent ones (base::recentQuestionsSince). Reads the questions, these blocks and what follows the
/// history; not the blocks between, which may hold anything.
///
/// Absent when what it reads is not as StateStore writes it, or cannot be read: the file is then to be loaded
/// whole, which also says what is wrong. Throws `std::bad_alloc`.
std::optional<QuillmereState> readPresent(const std::filesystem::path& file, base::Reach reach, Instant now);

/// The same state and the rest of its file, to change the one and keep the other.
struct Changeable {
    QuillmereState state;
    KeptPart kept;
};

/// Checks all of the file: absent also when a closed question or an earlier block is not exactly as
/// StateStore would write it, or has a number out of bounds.
std::optional<Changeable> readChangeable(const std::filesystem::path& file, base::Reach reach, Instant now);

}  // namespace quillmere::statefile
