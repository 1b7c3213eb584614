// Blocks with a planned start.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <functional>
#include <string>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

/// `idle`, with a full block that is due at `moment`, and every other field filled.
QuillmereState crowdedWaitingState()
{
    QuillmereState state = crowdedStateIn(idle);
    state.currentBlock->plannedStart = moment;
    state.currentBlock->scheduledStartTriggeredAt.reset();
    return state;
}

Block blockFor(std::optional<Instant> plannedStart)
{
    Block block = sampleBlock(9);
    block.plannedStart = plannedStart;
    return block;
}

// scheduleBlock --------------------------------------------------------------------------------------

TEST(ScheduleBlock, letsTheBlockWaitUnchanged)
{
    QuillmereState state = crowdedStateIn(blockPlanning);
    Block block = blockInWork(9, 2);
    block.plannedStart = now + 3600;
    block.scheduledStartTriggeredAt = moment;
    QuillmereState expected = state;
    expected.currentBlock = block;
    expected.workflowState = idle;
    expected.updatedAt = now;

    engine.scheduleBlock(state, block, now);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(ScheduleBlock, withoutAPlannedStartIsRefusedThoughTheDurationsAreValid)
{
    EXPECT_TRUE(
        isRefused(WorkflowError::invalidTransition, crowdedStateIn(blockPlanning),
                  [](QuillmereState& state) { engine.scheduleBlock(state, blockFor(std::nullopt), now); }));
}

/// Each makes one value of a block invalid.
const std::array<std::function<void(Block&)>, 8> spoilers = {
    [](Block& block) { block.focusDurationSeconds = 0; },
    [](Block& block) { block.focusDurationSeconds = -1; },
    [](Block& block) { block.focusDurationSeconds = notANumber; },
    [](Block& block) { block.breakDurationSeconds = 0; },
    [](Block& block) { block.breakDurationSeconds = -1; },
    [](Block& block) { block.breakDurationSeconds = notANumber; },
    [](Block& block) { block.cycleCount = 0; },
    [](Block& block) { block.cycleCount = -1; },
};

TEST(ScheduleBlock, refusesADurationOrCycleCountThatIsNotAboveZero)
{
    for (const auto& spoil : spoilers) {
        SCOPED_TRACE(&spoil - spoilers.data());
        Block block = blockFor(now + 3600);
        spoil(block);
        EXPECT_TRUE(isRefused(WorkflowError::invalidDuration, crowdedStateIn(blockPlanning),
                              [&](QuillmereState& state) { engine.scheduleBlock(state, block, now); }));
    }
}

TEST(ScheduleBlock, checksThePlannedStartBeforeTheDurations)
{
    for (const auto& spoil : spoilers) {
        SCOPED_TRACE(&spoil - spoilers.data());
        Block block = blockFor(std::nullopt);
        spoil(block);
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, crowdedStateIn(blockPlanning),
                              [&](QuillmereState& state) { engine.scheduleBlock(state, block, now); }));
    }
}

TEST(ScheduleBlock, checksTheWorkflowStateBeforeTheDurations)
{
    for (const auto& spoil : spoilers) {
        SCOPED_TRACE(&spoil - spoilers.data());
        Block block = blockFor(now + 3600);
        spoil(block);
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, crowdedStateIn(idle),
                              [&](QuillmereState& state) { engine.scheduleBlock(state, block, now); }));
    }
}

TEST(ScheduleBlock, acceptsAStartInThePastAndTheNextEvaluationBeginsTheBlock)
{
    QuillmereState state = stateIn(blockPlanning);
    engine.scheduleBlock(state, blockFor(now - 86'400), now);
    EXPECT_EQ(rawValue(state.workflowState), "idle");
    EXPECT_TRUE(engine.evaluateSchedule(state, now));
}

TEST(ScheduleBlock, closesPlanningUntilTheBlockIsStartedEditedOrCancelled)
{
    QuillmereState state = stateIn(blockPlanning);
    engine.scheduleBlock(state, blockFor(now + 3600), now);
    const auto beginPlanning = [](QuillmereState& changed) { engine.beginBlockPlanning(changed, now); };
    ASSERT_TRUE(isRefused(WorkflowError::invalidTransition, state, beginPlanning));

    QuillmereState cancelled = state;
    engine.cancelScheduledBlock(cancelled, now);
    EXPECT_EQ(refusalOf([&] { beginPlanning(cancelled); }), std::nullopt);

    QuillmereState edited = state;
    engine.editScheduledBlock(edited, now);
    EXPECT_EQ(rawValue(edited.workflowState), "blockPlanning");

    QuillmereState started = state;
    engine.startScheduledBlockNow(started, now);
    EXPECT_EQ(rawValue(started.workflowState), "sessionPlanning");
}

// edit, cancel, start now ----------------------------------------------------------------------------

TEST(EditScheduledBlock, goesBackToPlanningWithTheBlockInHand)
{
    QuillmereState state = crowdedWaitingState();
    QuillmereState expected = state;
    expected.workflowState = blockPlanning;
    expected.updatedAt = now;
    engine.editScheduledBlock(state, now);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(CancelScheduledBlock, discardsTheBlockAndThePlanAndLeavesTheHistoryAsItIs)
{
    QuillmereState state = crowdedWaitingState();
    QuillmereState expected = state;
    expected.currentBlock.reset();
    expected.plannedNextSession.reset();
    expected.updatedAt = now;
    engine.cancelScheduledBlock(state, now);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(StartScheduledBlockNow, removesThePlannedStartAndRecordsTheStart)
{
    QuillmereState state = crowdedWaitingState();
    QuillmereState expected = state;
    expected.currentBlock->plannedStart.reset();
    expected.currentBlock->scheduledStartTriggeredAt = now;
    expected.plannedNextSession.reset();
    expected.workflowState = sessionPlanning;
    expected.updatedAt = now;
    engine.startScheduledBlockNow(state, now);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(StartScheduledBlockNow, startsABlockThatWasTriggeredBefore)
{
    QuillmereState state = crowdedWaitingState();
    state.currentBlock->scheduledStartTriggeredAt = moment - 500;
    engine.startScheduledBlockNow(state, now);
    EXPECT_EQ(state.currentBlock->scheduledStartTriggeredAt, now);
}

TEST(ScheduledBlock, isNeededByEditCancelAndStartNow)
{
    QuillmereState withoutStart = crowdedStateIn(idle);
    withoutStart.currentBlock->plannedStart.reset();
    QuillmereState withoutBlock = crowdedStateIn(idle);
    withoutBlock.currentBlock.reset();
    for (const QuillmereState& state : {withoutStart, withoutBlock}) {
        SCOPED_TRACE(state.currentBlock ? "no planned start" : "no block");
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state,
                              [](QuillmereState& changed) { engine.editScheduledBlock(changed, now); }));
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state,
                              [](QuillmereState& changed) { engine.cancelScheduledBlock(changed, now); }));
        EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state,
                              [](QuillmereState& changed) { engine.startScheduledBlockNow(changed, now); }));
    }
}

// evaluateSchedule -----------------------------------------------------------------------------------

TEST(EvaluateSchedule, startsTheDueBlockAndKeepsItsPlannedStartAndThePlan)
{
    QuillmereState state = crowdedWaitingState();
    QuillmereState expected = state;
    expected.currentBlock->scheduledStartTriggeredAt = now;
    expected.workflowState = sessionPlanning;
    expected.updatedAt = now;
    EXPECT_TRUE(engine.evaluateSchedule(state, now));
    EXPECT_TRUE(isExactly(state, expected));
}

/// The planned start is `moment`; the evaluation is `offset` later.
struct ScheduleEvaluation {
    double offset;
    bool starts;
};

constexpr auto evaluations = std::to_array<ScheduleEvaluation>({
    {-1, false},
    {-0.001, false},
    {0, true},
    {0.001, true},
    {1, true},
    {1e15, true},
    {infinity, true},
    {-infinity, false},
    {notANumber, false},
});

TEST(EvaluateSchedule, startsTheBlockAtItsPlannedStartAndNotBefore)
{
    for (const auto& [offset, starts] : evaluations) {
        SCOPED_TRACE(offset);
        QuillmereState state = crowdedWaitingState();
        const QuillmereState before = state;
        EXPECT_EQ(engine.evaluateSchedule(state, moment + offset), starts);
        EXPECT_EQ(state.workflowState, starts ? sessionPlanning : idle);
        if (!starts) {
            EXPECT_TRUE(isExactly(state, before));
        }
    }
}

TEST(EvaluateSchedule, takesAPlannedStartThatIsNotANumberForNeverDue)
{
    QuillmereState state = crowdedWaitingState();
    state.currentBlock->plannedStart = noInstant;
    EXPECT_FALSE(engine.evaluateSchedule(state, now));
    EXPECT_EQ(rawValue(state.workflowState), "idle");
    EXPECT_EQ(state.currentBlock->scheduledStartTriggeredAt, std::nullopt);
}

TEST(EvaluateSchedule, hasNothingToDoWithoutABlockThatWaits)
{
    std::array<QuillmereState, 4> states = {stateIn(idle), crowdedWaitingState(), crowdedWaitingState(),
                                            crowdedWaitingState()};
    states[1].currentBlock->plannedStart.reset();
    states[2].currentBlock->scheduledStartTriggeredAt = moment - 60;
    states[3].workflowState = blockPlanning;
    for (const QuillmereState& before : states) {
        SCOPED_TRACE(&before - states.data());
        QuillmereState state = before;
        EXPECT_FALSE(engine.evaluateSchedule(state, now));
        EXPECT_TRUE(isExactly(state, before));
    }
}

TEST(EvaluateSchedule, startsABlockOnceOnly)
{
    QuillmereState state = crowdedWaitingState();
    ASSERT_TRUE(engine.evaluateSchedule(state, now));
    const QuillmereState before = state;
    EXPECT_FALSE(engine.evaluateSchedule(state, now + 1));
    EXPECT_TRUE(isExactly(state, before));
}

TEST(EvaluateSchedule, keepsThePlannedStartAndThePlanUnlikeAnEarlyStart)
{
    QuillmereState evaluated = crowdedWaitingState();
    QuillmereState startedNow = crowdedWaitingState();
    engine.evaluateSchedule(evaluated, now);
    engine.startScheduledBlockNow(startedNow, now);
    EXPECT_EQ(evaluated.currentBlock->plannedStart, moment);
    EXPECT_EQ(startedNow.currentBlock->plannedStart, std::nullopt);
    EXPECT_EQ(evaluated.plannedNextSession, samplePlan(3));
    EXPECT_EQ(startedNow.plannedNextSession, std::nullopt);
}

}  // namespace
}  // namespace quillmere::test
