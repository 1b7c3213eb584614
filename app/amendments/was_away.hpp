// A pause that was forgotten.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <optional>

namespace quillmere::amendments {

/// In `focusing` with a session: adds the time between the two instants to its pauses. Without `to`, it lasts
/// until now, or until the running pause began. The time lies between the start of the session and that end.
/// Together with the finished pauses it is no longer than the session has run; when those pauses were is not
/// recorded, so more is not checked. Throws Refusal elsewhere, and with the possible times or lengths.
void wasAway(QuillmereState& state, Instant from, std::optional<Instant> to, Instant now);

}  // namespace quillmere::amendments
