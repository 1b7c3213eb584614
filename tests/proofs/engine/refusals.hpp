// The conditions in which the reference model refuses a call.
#pragma once

#include <optional>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

/// The error that a call must end with; absent when it must succeed, and for the two evaluations.
std::optional<WorkflowError::Case> refusalOf(const QuillmereState& state, const Call& call);

/// Whether a block waits for its planned start, whether or not that has passed.
bool waits(const QuillmereState& state);

bool hasCyclesLeft(const Block& block);

/// The plan for a new session: the given one, otherwise the saved one.
const std::optional<SessionPlan>& chosenPlan(const QuillmereState& state, const Call& call);

}  // namespace quillmere::test
