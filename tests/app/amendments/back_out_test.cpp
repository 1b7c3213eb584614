#include "amendments/back_out.hpp"

#include <limits>

#include "amendment_testing.hpp"

#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::backOut;

const Instant late = moment + 3'600;

/// Its start is an hour after `moment`.
QuillmereState editingScheduledBlock()
{
    return edited(stateWithScheduledBlock(),
                  [](QuillmereState& state) { WorkflowEngine().editScheduledBlock(state, moment); });
}

TEST(BackOut, leavesNothingOfABlockThatWasNotScheduled)
{
    QuillmereState planning = stateIn(WorkflowState::blockPlanning);
    planning.plannedNextSession = samplePlan(1);
    planning.breakStartedAt = moment;
    planning.breakExtensionSeconds = 5;
    planning.breakEndNotifiedAt = moment;
    QuillmereState expected = stateIn(WorkflowState::idle);
    expected.updatedAt = soon;
    EXPECT_EQ(amended(planning, soon, [](auto& s) { backOut(s, {}, soon); }), expected);
}

TEST(BackOut, letsAScheduledBlockWaitAsItWas)
{
    QuillmereState expected = stateWithScheduledBlock();
    expected.updatedAt = soon;
    EXPECT_EQ(amended(editingScheduledBlock(), soon, [](auto& s) { backOut(s, {}, soon); }), expected);
    EXPECT_EQ(
        amended(editingScheduledBlock(), soon, [](auto& s) { backOut(s, amendments::DropBlock{}, soon); }),
        expected);
}

TEST(BackOut, armsTheStartOfABlockThatAFileCallsBegun)
{
    QuillmereState state = editingScheduledBlock();
    state.currentBlock->scheduledStartTriggeredAt = moment;
    state = amended(state, soon, [](auto& s) { backOut(s, {}, soon); });
    EXPECT_TRUE(WorkflowEngine().evaluateSchedule(state, late));
}

TEST(BackOut, requiresAChoiceWhenTheStartHasPassed)
{
    EXPECT_EQ(refused(editingScheduledBlock(), [](auto& s) { backOut(s, {}, late); }),
              "The start of the scheduled block has passed while it was edited. Possible: start it now, give "
              "it another time, or drop it.");
}

TEST(BackOut, beginsABlockWhoseStartHasPassed)
{
    QuillmereState expected = stateWithScheduledBlock();
    WorkflowEngine().startScheduledBlockNow(expected, late);
    EXPECT_EQ(
        amended(editingScheduledBlock(), late, [](auto& s) { backOut(s, amendments::StartNow{}, late); }),
        expected);
}

TEST(BackOut, givesABlockAnotherStart)
{
    QuillmereState expected = stateWithScheduledBlock();
    expected.currentBlock->plannedStart = late + 1;
    expected.updatedAt = late;
    EXPECT_EQ(amended(editingScheduledBlock(), late,
                      [](auto& s) { backOut(s, amendments::StartAt{late + 1}, late); }),
              expected);
}

TEST(BackOut, refusesAnotherStartThatIsNotToCome)
{
    constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
    for (const Instant start : {late, late - 1, Instant(noNumber), Instant(1e15)}) {
        EXPECT_EQ(
            refused(editingScheduledBlock(), [&](auto& s) { backOut(s, amendments::StartAt{start}, late); }),
            "Another start of the block has to lie ahead. Possible too: start it now, or drop it.");
    }
}

TEST(BackOut, dropsABlockWhoseStartHasPassed)
{
    QuillmereState expected = stateIn(WorkflowState::idle);
    expected.updatedAt = late;
    EXPECT_EQ(
        amended(editingScheduledBlock(), late, [](auto& s) { backOut(s, amendments::DropBlock{}, late); }),
        expected);
}

TEST(BackOut, losesNoSessionThatAFilePutsIntoPlanning)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.workflowState = WorkflowState::blockPlanning;
    state = amended(state, soon, [](auto& s) { backOut(s, {}, soon); });
    ASSERT_EQ(state.blockHistory.size(), 1U);
    EXPECT_EQ(state.blockHistory[0].completedAt, soon);
}

TEST(BackOut, isRefusedWhereNoBlockIsPlanned)
{
    EXPECT_EQ(refused(stateIn(WorkflowState::breaking), [](auto& s) { backOut(s, {}, soon); }),
              "No block is being planned.");
    EXPECT_EQ(refused(stateWithScheduledBlock(), [](auto& s) { backOut(s, {}, soon); }),
              "No block is being planned.");
}

}  // namespace
}  // namespace quillmere::test
