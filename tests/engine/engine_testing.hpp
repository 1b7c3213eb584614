// What the tests of the engine share.
#pragma once

#include <gtest/gtest.h>
#include <quillmere/engine/workflow_engine.hpp>

#include <limits>
#include <optional>

#include "support/sample_states.hpp"

namespace quillmere::test {

inline constexpr WorkflowEngine engine;

/// Later than every instant that the samples hold.
inline constexpr Instant now = moment + 10'000;

inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr Instant noInstant{notANumber};

/// `fullState` in another workflow state: every field holds something, also where the engine never
/// leaves it so, and a write too many shows.
QuillmereState crowdedStateIn(WorkflowState workflowState);

/// Whether all of two states is equal; names the fields that are not.
testing::AssertionResult isExactly(const QuillmereState& actual, const QuillmereState& expected);

/// The case that `operation` is refused with; absent when it succeeds.
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

/// Whether `operation`, called with a copy of `before`, throws this error and leaves the copy as it was.
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
