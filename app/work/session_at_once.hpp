// A session that begins at once, without a plan of its block.
#pragma once

#include "config/values.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>

namespace quillmere::work {

/// Starts a focus session with this plan, of this length in seconds if one is given. In `sessionPlanning` it
/// is the next session of the block. From `idle` a block begins for it alone: the intended outcome is its
/// only outcome, which the session serves; its lengths are those of the configuration.
///
/// Throws amendments::Refusal while a scheduled block waits, and WorkflowError elsewhere and for ratings out
/// of range.
void startAtOnce(QuillmereState& state, SessionPlan plan, std::optional<double> seconds,
                 const config::Values& values, Instant now);

}  // namespace quillmere::work
