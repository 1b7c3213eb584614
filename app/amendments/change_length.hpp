// A running session made longer or shorter.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// In `focusing` with a session: changes its planned length `by` seconds, which may be negative. At least one
/// second stays to run, at most the longest duration is planned. Throws Refusal elsewhere, and with the
/// lengths that the session may have when it cannot have this one.
void changeLength(QuillmereState& state, double by, Instant now);

}  // namespace quillmere::amendments
