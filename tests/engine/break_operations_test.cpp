// Breaks: extended, ended, skipped. Their timer is in timer_evaluation_test.cpp.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

auto extendingBy(double seconds)
{
    return [seconds](QuillmereState& state) { engine.extendBreak(state, seconds, now); };
}

TEST(ExtendBreak, addsToTheExtensionAndLetsTheEndBeAnnouncedAgain)
{
    QuillmereState state = crowdedStateIn(breaking);
    QuillmereState expected = state;
    expected.breakExtensionSeconds = 60.5 + 120;
    expected.breakEndNotifiedAt.reset();
    expected.updatedAt = now;
    extendingBy(120)(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(ExtendBreak, addsUpTwoExtensions)
{
    QuillmereState state = stateIn(breaking);
    extendingBy(300)(state);
    extendingBy(300)(state);
    EXPECT_EQ(state.breakExtensionSeconds, 600);
}

TEST(ExtendBreak, refusesSecondsThatAreNotAboveZeroWithInvalidTransition)
{
    for (const double seconds : {0.0, -0.0, -1.0, -1e300, -infinity, notANumber}) {
        SCOPED_TRACE(seconds);
        EXPECT_TRUE(
            isRefused(WorkflowError::invalidTransition, crowdedStateIn(breaking), extendingBy(seconds)));
    }
}

TEST(ExtendBreak, acceptsAnythingAboveZero)
{
    // No timer can count the largest ones; the program must prevent them.
    for (const double seconds : {smallest, 0.5, 1e300, infinity}) {
        SCOPED_TRACE(seconds);
        QuillmereState state = stateIn(breaking);
        extendingBy(seconds)(state);
        EXPECT_EQ(state.breakExtensionSeconds, seconds);
    }
}

TEST(ExtendBreak, dependsOnTheWorkflowStateOnly)
{
    QuillmereState state = stateIn(breaking);
    state.currentBlock.reset();
    state.breakStartedAt.reset();
    extendingBy(60)(state);
    EXPECT_EQ(state.breakExtensionSeconds, 60);
}

TEST(EndBreak, clearsTheBreakAndKeepsTheSavedPlan)
{
    QuillmereState state = crowdedStateIn(breaking);
    QuillmereState expected = state;
    expected.breakStartedAt.reset();
    expected.breakExtensionSeconds = 0;
    expected.breakEndNotifiedAt.reset();
    expected.workflowState = sessionPlanning;
    expected.updatedAt = now;
    engine.endBreak(state, now);
    EXPECT_TRUE(isExactly(state, expected));
    EXPECT_EQ(state.plannedNextSession, samplePlan(3));
}

TEST(EndBreak, mayComeEarlyAndLate)
{
    for (const double offset : {0.0, 1.0, 299.0, 300.0, 86'400.0, -60.0}) {
        SCOPED_TRACE(offset);
        QuillmereState state = stateIn(breaking);
        engine.endBreak(state, moment + offset);
        EXPECT_EQ(rawValue(state.workflowState), "sessionPlanning");
    }
}

TEST(EndBreak, dependsOnTheWorkflowStateOnly)
{
    QuillmereState state = stateIn(breaking);
    state.currentBlock.reset();
    state.breakStartedAt.reset();
    state.plannedNextSession.reset();
    EXPECT_EQ(refusalOf([&] { engine.endBreak(state, now); }), std::nullopt);
}

TEST(SkipBreak, isEndBreakUnderAnotherName)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState ended = crowdedStateIn(workflowState);
        QuillmereState skipped = ended;
        EXPECT_EQ(refusalOf([&] { engine.endBreak(ended, now); }),
                  refusalOf([&] { engine.skipBreak(skipped, now); }));
        EXPECT_TRUE(isExactly(skipped, ended));
    }
}

}  // namespace
}  // namespace quillmere::test
