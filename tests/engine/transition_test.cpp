#include <quillmere/engine/transition.hpp>

#include <gtest/gtest.h>

#include <algorithm>

namespace quillmere::test {
namespace {

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
