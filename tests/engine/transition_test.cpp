#include <quillmere/engine/transition.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "workflow_map.hpp"

namespace quillmere::test {
namespace {

/// "operation: from -> to", for messages and for comparison.
std::string arrowText(std::string_view operation, std::optional<WorkflowState> from,
                      std::optional<WorkflowState> to)
{
    const auto name = [](std::optional<WorkflowState> state, std::string_view otherwise) {
        return std::string(state ? rawValue(*state) : otherwise);
    };
    return std::string(operation) + ": " + name(from, "any") + " -> " + name(to, "same");
}

TEST(TransitionTable, saysTheSameAsTheMapWrittenDownByHand)
{
    std::multiset<std::string> expected;
    for (const Arrow& arrow : arrows()) {
        // Second names: skipBreak is endBreak, and a focus that runs out is ended by endFocus.
        const bool isSecondName = arrow.operation == "skipBreak" ||
                                  (arrow.operation == "evaluateTimer" && arrow.when == "focus is over");
        if (!isSecondName) {
            expected.insert(arrowText(arrow.operation, arrow.from, arrow.to));
        }
    }
    std::multiset<std::string> actual;
    for (const Transition& row : transition_table::rows) {
        actual.insert(arrowText(row.operation, row.accepts, row.result));
    }
    EXPECT_EQ(actual, expected);
}

TEST(TransitionTable, neverLeadsToComplete)
{
    for (const Transition& row : transition_table::rows) {
        EXPECT_NE(row.result, WorkflowState::complete) << row.operation;
    }
}

TEST(TransitionTable, neverLeadsAwayFromComplete)
{
    for (const Transition& row : transition_table::rows) {
        EXPECT_NE(row.accepts, WorkflowState::complete) << row.operation;
    }
}

TEST(TransitionTable, leavesNoOtherStateWithoutAWayOut)
{
    for (const WorkflowState state : allCases<WorkflowState>()) {
        const bool hasWayOut = std::any_of(
            transition_table::rows.begin(), transition_table::rows.end(),
            [&](const Transition& row) { return row.accepts == state && row.result && row.result != state; });
        EXPECT_EQ(hasWayOut, state != WorkflowState::complete) << rawValue(state);
    }
}

TEST(TransitionTable, tellsTwoRowsOfOneStateApartByTheirCondition)
{
    for (const Transition& left : transition_table::rows) {
        for (const Transition& right : transition_table::rows) {
            if (&left != &right && left.operation == right.operation) {
                EXPECT_NE(left.condition, right.condition) << left.operation;
            }
        }
    }
}

TEST(Transition, findsTheRowOfEveryStep)
{
    for (const Transition& row : transition_table::rows) {
        EXPECT_EQ(&transition(row.value), &row) << row.operation;
    }
}

TEST(TransitionDeathTest, stopsTheProgramOverAValueThatIsNoStep)
{
    const auto beyondTheLast = static_cast<Step>(transition_table::rows.size());
    EXPECT_DEATH((void)transition(beyondTheLast), "an enumeration holds a value that is none of its cases");
    EXPECT_DEATH((void)transition(static_cast<Step>(-1)),
                 "an enumeration holds a value that is none of its cases");
}

}  // namespace
}  // namespace quillmere::test
