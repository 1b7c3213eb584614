// Helpers of the engine's tests.
#pragma once

#include <gtest/gtest.h>
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <cstdint>
#include <optional>

#include "support/extreme_numbers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {

inline constexpr WorkflowEngine engine;

/// Later than every instant in the samples.
inline constexpr Instant now = moment + 10'000;

inline constexpr Instant noInstant{notANumber};

/// Energy and morale of plans that the engine refuses.
inline constexpr auto badRatings = std::to_array<std::array<std::int64_t, 2>>({
    {0, 3},
    {6, 3},
    {9, 3},
    {3, 0},
    {3, 6},
    {0, 6},
    {-1, 3},
    {3, -1},
    {-1, -1},
    {most, 3},
    {3, most},
    {least, 3},
    {3, least},
});

SessionPlan planRated(std::int64_t energy, std::int64_t morale);

/// The last session of the current block, which must have one.
WorkSession& session(QuillmereState& state);

/// `fullState` in another workflow state: every field has a value, even where the engine would never leave
/// one, so that every unnecessary write is detected.
QuillmereState crowdedStateIn(WorkflowState workflowState);

/// Whether two states are equal; names the differing fields.
testing::AssertionResult isExactly(const QuillmereState& actual, const QuillmereState& expected);

/// The case of the error that `operation` throws; absent when it succeeds.
template <class Operation>
std::optional<WorkflowError::Case> refusalOf(Operation operation)
{
    try {
        operation();
    } catch (const WorkflowError& error) {
        return error.reason();
    }
    return std::nullopt;
}

/// Whether `operation`, called with a copy of `before`, throws this error and leaves the copy unchanged.
template <class Operation>
testing::AssertionResult isRefused(WorkflowError::Case expected, const QuillmereState& before,
                                   Operation operation)
{
    QuillmereState state = before;
    const auto refusal = refusalOf([&] { operation(state); });
    if (!refusal) {
        return testing::AssertionFailure() << "not refused";
    }
    if (*refusal != expected) {
        return testing::AssertionFailure() << "refused with " << WorkflowError(*refusal).caseName();
    }
    return isExactly(state, before);
}

}  // namespace quillmere::test
