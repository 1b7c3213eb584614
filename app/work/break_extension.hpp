// Lengthening a break.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// The extension that one key or one button gives, in seconds.
inline constexpr double usualBreakExtension = 5 * 60;

/// Lengthens the break by `seconds` (WorkflowEngine::extendBreak, with its refusals). An end that lies before
/// `now` even so is recorded at once: it is no news, and nobody is told of it a second time.
void extendBreak(QuillmereState& state, double seconds, Instant now);

}  // namespace quillmere::work
