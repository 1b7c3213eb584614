// Dropping a block before its first session.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// In `sessionPlanning` without a session: `idle` without the block; the plan of a next session and the break
/// are cleared. Throws Refusal elsewhere.
void drop(QuillmereState& state, Instant now);

}  // namespace quillmere::amendments
