// Deleting a finished block, in the words of every surface.
#pragma once

#include "base/text/hours.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string>

namespace quillmere::work {

/// The block in one line: when it finished, how many sessions it had, its first outcome. Sanitized.
std::string blockInOneLine(const Block& block, base::Hours hours);

/// "Delete the block of 2026-11-15 16:00, 3 sessions: Chapter one?"
std::string deletionQuestion(const Block& block, base::Hours hours);

/// Said after the deletion: that versions hold the block for longer, and the command that removes it there.
/// `state` is the state with the block.
std::string deletedText(const Block& block, const QuillmereState& state);

}  // namespace quillmere::work
