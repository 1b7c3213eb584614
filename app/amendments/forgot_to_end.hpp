// An end of a session that was forgotten.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// In `focusing`, and in `sessionReview` before the review: the session ended at `end`. That is not before
/// its start plus its pauses, nor before a running pause, nor after `now`. Throws Refusal elsewhere, and with
/// the possible times for any other end.
void forgotToEnd(QuillmereState& state, Instant end, Instant now);

}  // namespace quillmere::amendments
