// The draft of the next block: what was typed for a block before it began, or the words of a dropped block.
#pragma once

#include "config/values.hpp"
#include "work/forms/drafts.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>

namespace quillmere::work {

/// The operation, which then keeps the texts and lengths of a block that it removes without finishing it, as
/// the draft of the next block: in place of what was typed in the same fields, and without the planned start.
/// Throws `std::system_error` when the draft cannot be written, before the state is saved, so that no word is
/// lost. `drafts` must outlive the result. `values` are those of the configuration, for a blank block.
workspace::Operation keepingWords(workspace::Operation operation, const Drafts& drafts,
                                  const config::Values& values = {});

/// The block that planning would begin with now, with the draft of its form. A value that cannot be used is
/// left out, and so is the planned start. Absent when there is no draft.
std::optional<Block> draftOfNextBlock(const QuillmereState& state, const Drafts& drafts, Instant now,
                                      const config::Values& values = {});

/// Removes that draft. Throws `std::system_error`.
void forgetDraftOfNextBlock(const QuillmereState& state, const Drafts& drafts);

}  // namespace quillmere::work
