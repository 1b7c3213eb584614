// Helpers of the engine's tests.
#pragma once

#include <gtest/gtest.h>
#include <quillmere/engine/workflow_engine.hpp>

#include <limits>
#include <optional>

#include "support/sample_states.hpp"

namespace quillmere::test {

inline constexpr WorkflowEngine engine;

/// Later than every instant in the samples.
inline constexpr Instant now = moment + 10'000;

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr Instant noInstant{notANumber};

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
