// What the tests of all amendments ask.
#pragma once

#include "amendments/refusal.hpp"

#include <gtest/gtest.h>
#include <quillmere/records/quillmere_state.hpp>

#include <functional>
#include <string>

#include "support/sample_states.hpp"

namespace quillmere::test {

// When the amendments of the tests are made; the work stands as at `moment`.
inline constexpr Instant soon = moment + 60;
inline constexpr Instant later = moment + 1'200;

using Amend = std::function<void(QuillmereState&)>;

/// Fails the test unless the state is accepted on loading, comes back from its file, and has a timer and
/// summaries.
void expectUsable(const QuillmereState& state, Instant now);

/// The state after an amendment at `now`, which must be usable. Fails the test unless `updatedAt` is `now`.
QuillmereState amended(QuillmereState state, Instant now, const Amend& amend);

/// The refusal of an amendment, which must leave the state as it was; fails the test without one.
amendments::Refusal refusal(const QuillmereState& state, const Amend& amend);

/// Its message.
std::string refused(const QuillmereState& state, const Amend& amend);

/// A state in `workflowState` after an edit by hand.
QuillmereState edited(QuillmereState state, const Amend& edit);

}  // namespace quillmere::test
