// Lengthening a break.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// The extension of a session or a break by one key or button, in seconds.
inline constexpr double usualExtension = 5 * 60;

/// Lengthens the break by `seconds`, with the refusals of WorkflowEngine::extendBreak. When the new end has
/// passed too, records it at once: people have been told of the end of this break already.
void extendBreak(QuillmereState& state, double seconds, Instant now);

}  // namespace quillmere::work
