// The draft of the next block: what was typed for one that has not begun, or the words of one that was
// dropped.
#pragma once

#include "work/forms/drafts.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>

namespace quillmere::work {

/// Keeps the texts and lengths of a block that left the work as the draft of the next block after it, in
/// place of what was typed in the same fields; not its planned start. `idle` is the state without the block.
/// Throws `std::system_error`.
void keepAsDraft(const Block& block, const QuillmereState& idle, const Drafts& drafts, Instant now);

/// The block that planning would begin with now, with the draft of its form. A value that cannot be used is
/// left out, and so is the planned start. Absent when there is no draft.
std::optional<Block> draftOfNextBlock(const QuillmereState& state, const Drafts& drafts, Instant now);

/// Removes that draft. Throws `std::system_error`.
void forgetDraftOfNextBlock(const QuillmereState& state, const Drafts& drafts);

}  // namespace quillmere::work
