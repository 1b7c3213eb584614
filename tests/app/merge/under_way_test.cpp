#include <gtest/gtest.h>

#include <vector>

#include "merge_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

/// Fails unless the work of the first goes on, whoever wrote a file last.
void expectGoesOn(const QuillmereState& winner, const QuillmereState& other)
{
    for (const double later : {-100.0, 0.0, 100.0}) {
        QuillmereState asked = other;
        asked.updatedAt = winner.updatedAt + later;
        const QuillmereState merged = mergedBothWays(winner, asked).state;
        EXPECT_EQ(merged.workflowState, winner.workflowState);
        EXPECT_EQ(merged.currentBlock ? std::optional(merged.currentBlock->id) : std::nullopt,
                  winner.currentBlock ? std::optional(winner.currentBlock->id) : std::nullopt);
        EXPECT_EQ(merged.plannedNextSession, winner.plannedNextSession);
        EXPECT_EQ(merged.breakStartedAt, winner.breakStartedAt);
        EXPECT_EQ(merged.breakExtensionSeconds, winner.breakExtensionSeconds);
        EXPECT_EQ(merged.breakEndNotifiedAt, winner.breakEndNotifiedAt);
    }
}

TEST(TheWorkThatGoesOn, isNotABlockThatTheOtherSideHasFinished)
{
    QuillmereState finished = stateIn(idle);
    finished.blockHistory = {finishedBlock(1, moment + 60)};
    expectGoesOn(finished, stateIn(focusing));
}

TEST(TheWorkThatGoesOn, isNothingWhenEachSideHasFinishedTheBlockOfTheOther)
{
    QuillmereState a = stateIn(focusing);
    QuillmereState b = atAnotherBlock(focusing);
    a.blockHistory = {*b.currentBlock};
    a.blockHistory[0].completedAt = moment + 60;
    b.blockHistory = {*a.currentBlock};
    b.blockHistory[0].completedAt = moment + 60;
    const QuillmereState merged = mergedBothWays(a, b).state;
    EXPECT_EQ(merged.workflowState, idle);
    EXPECT_EQ(merged.currentBlock, std::nullopt);
    EXPECT_EQ(merged.blockHistory.size(), 2);
}

TEST(TheWorkThatGoesOn, isABlockRatherThanNone)
{
    expectGoesOn(stateWithScheduledBlock(), stateIn(idle));
    expectGoesOn(stateWithScheduledBlock(), stateIn(blockPlanning));
}

TEST(TheWorkThatGoesOn, isThatOfTheSideWithTheLaterFinishWhenThereIsNoBlock)
{
    QuillmereState finished = stateIn(idle);
    finished.blockHistory = {finishedBlock(10, moment)};
    expectGoesOn(finished, stateIn(blockPlanning));
    expectGoesOn(stateIn(blockPlanning), stateIn(idle));
}

TEST(TheWorkThatGoesOn, isABlockThatHasBegunRatherThanOneThatWaits)
{
    QuillmereState waiting = stateWithScheduledBlock();
    waiting.currentBlock->id = identifier(350);
    waiting.currentBlock->createdAt = moment + 500;
    expectGoesOn(stateIn(sessionPlanning), waiting);
    expectGoesOn(stateIn(focusing), waiting);
}

TEST(TheWorkThatGoesOn, isTheBlockInWhichASessionBeganLast)
{
    QuillmereState later = atAnotherBlock(focusing);
    later.currentBlock->sessions.back().startedAt = moment + 1;
    expectGoesOn(later, stateIn(focusing));
}

TEST(TheWorkThatGoesOn, isTheBlockWithTheLaterBreak)
{
    QuillmereState later = atAnotherBlock(breaking);
    later.breakStartedAt = moment + 1;
    expectGoesOn(later, stateIn(breaking));
}

TEST(TheWorkThatGoesOn, isTheCopyOfABlockThatHasComeFurther)
{
    QuillmereState paused = stateIn(focusing);
    paused.currentBlock->sessions.back().pausedAt = moment + 30;
    QuillmereState extended = stateIn(breaking);
    extended.breakExtensionSeconds = 60;
    QuillmereState announced = extended;
    announced.breakEndNotifiedAt = moment + 400;
    QuillmereState planning = stateIn(breaking);
    planning.workflowState = sessionPlanning;
    planning.breakStartedAt.reset();
    const std::vector<QuillmereState> inOrder = {
        stateIn(sessionPlanning), stateIn(focusing), paused,    stateIn(sessionReview),
        stateIn(breaking),        extended,          announced, planning,
        stateIn(blockReview)};
    for (std::size_t place = 1; place < inOrder.size(); ++place) {
        SCOPED_TRACE(place);
        expectGoesOn(inOrder[place], inOrder[place - 1]);
    }
}

TEST(TheWorkThatGoesOn, isWithTheSideThatHasMoreReviewsOfTheSameBlock)
{
    QuillmereState further = stateIn(focusing);
    further.currentBlock = blockInWork(1, 2);
    expectGoesOn(further, stateIn(breaking));
}

TEST(TheWorkThatGoesOn, isWithTheSideThatHasGoneOnFromTheSessionOfTheOther)
{
    // With more reviews, as after a merge with a third machine.
    QuillmereState behind = stateIn(focusing);
    for (const unsigned number : {460u, 461u}) {
        WorkSession reviewed = stateIn(breaking).currentBlock->sessions.back();
        reviewed.id = identifier(number);
        std::vector<WorkSession>& sessions = behind.currentBlock->sessions;
        sessions.insert(sessions.begin(), reviewed);
    }
    expectGoesOn(stateIn(breaking), behind);
}

TEST(TheWorkThatGoesOn, isTheLaterFileWhileTheBlockWaits)
{
    QuillmereState editing = stateWithScheduledBlock();
    editing.workflowState = blockPlanning;
    QuillmereState rescheduled = stateWithScheduledBlock();
    rescheduled.currentBlock->plannedStart = moment + 900;
    rescheduled.updatedAt = moment + 50;
    const QuillmereState merged = mergedBothWays(editing, rescheduled).state;
    EXPECT_EQ(merged.workflowState, idle);
    EXPECT_EQ(merged.currentBlock, rescheduled.currentBlock);
}

TEST(TheWorkThatGoesOn, isNotABlockThatWasSetAsideWithAllOfItsSessions)
{
    QuillmereState older = stateIn(focusing);
    QuillmereState newer = atAnotherBlock(focusing);
    newer.currentBlock->sessions.back().startedAt = moment + 30;
    QuillmereState merged = mergedBothWays(older, newer).state;
    // The block that went on is finished by now.
    merged.blockHistory.insert(merged.blockHistory.begin(), *merged.currentBlock);
    merged.blockHistory.front().completedAt = moment + 60;
    merged.currentBlock.reset();
    merged.workflowState = idle;
    expectGoesOn(merged, older);
}

TEST(TheWorkThatGoesOn, isASetAsideBlockWithAReviewThatIsNew)
{
    QuillmereState reviewed = atAnotherBlock(breaking);
    QuillmereState other = stateIn(idle);
    other.blockHistory = {*reviewed.currentBlock};
    other.blockHistory[0].sessions.back().review.reset();
    expectGoesOn(reviewed, other);
}

}  // namespace
}  // namespace quillmere::test
