// Bringing a block to its end before its last session.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// In `sessionPlanning` after a session, and in `breaking`: `blockReview`. The cycle count stays as planned,
/// so that the history can tell how many sessions were left out; the plan of a next session and the break are
/// cleared. Throws Refusal elsewhere.
void finishNow(QuillmereState& state, Instant now);

/// In `sessionReview` with a session: saves its review, and then does the same. Throws Refusal elsewhere.
void finishNow(QuillmereState& state, SessionReview review, Instant now);

}  // namespace quillmere::amendments
