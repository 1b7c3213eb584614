// A session that runs on after its end.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// The time between the end of a session and its continuation.
enum class TimeSinceEnd { countsAsFocus, countsAsPause };

/// In `sessionReview` before the review: the session runs on in `focusing`, planned `by` seconds longer. At
/// least one second must be left to run, and the length must stay within the limits. Throws Refusal
/// elsewhere, and with the possible extensions when this one does not do.
void goOn(QuillmereState& state, double by, TimeSinceEnd timeSinceEnd, Instant now);

}  // namespace quillmere::amendments
