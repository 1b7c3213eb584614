// Lengthening a focus session.
#pragma once

#include "amendments/go_on.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string_view>

namespace quillmere::work {

/// Changes the planned length of the running session `by` seconds; a session that waits for its review goes
/// on. Returns the sentence that says so. Throws amendments::Refusal as changeLength and goOn do.
std::string_view extendFocus(QuillmereState& state, double by, amendments::TimeSinceEnd sinceEnd,
                             Instant now);

}  // namespace quillmere::work
