// The way out of states that no step leads on from; only a file can bring them.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// In `complete`, and in a state whose block, session or planned start is missing so that no step leads on:
/// `idle` without a block; a block with sessions goes into the history. Throws Refusal elsewhere.
void reset(QuillmereState& state, Instant now);

}  // namespace quillmere::amendments
