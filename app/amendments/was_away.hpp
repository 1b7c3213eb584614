// A pause that was forgotten.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <optional>

namespace quillmere::amendments {

/// In `focusing` with a session: adds the time between the two instants to its pauses. Without `to`, up to
/// now, or up to the running pause. The time lies between the start of the session and that end, and with the
/// finished pauses, of which only the sum is known, is no longer than the session has run. Throws Refusal
/// elsewhere, and with the possible times or lengths.
void wasAway(QuillmereState& state, Instant from, std::optional<Instant> to, Instant now);

}  // namespace quillmere::amendments
