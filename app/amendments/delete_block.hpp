// Deleting a finished block.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// Removes the finished block with this identifier from the history. Versions of the state hold it for
/// longer. Throws Refusal when there is none.
void deleteBlock(QuillmereState& state, const Identifier& block, Instant now);

}  // namespace quillmere::amendments
