// When a call is refused, in the second statement of the rules.
#pragma once

#include <optional>

#include "proofs/engine/call.hpp"

namespace quillmere::test {

/// Which error a call must end with; absent when it must succeed, and for the two evaluations.
std::optional<WorkflowError::Case> refusalOf(const QuillmereState& state, const Call& call);

/// Whether a block waits for its planned start, come or not.
bool waits(const QuillmereState& state);

bool hasCyclesLeft(const Block& block);

/// The plan that a session starts by: the one given, otherwise the one saved.
const std::optional<SessionPlan>& chosenPlan(const QuillmereState& state, const Call& call);

}  // namespace quillmere::test
