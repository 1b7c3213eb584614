// Planning, starting and finishing a block.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <string>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

// beginBlockPlanning ---------------------------------------------------------------------------------

void beginPlanning(QuillmereState& state) { engine.beginBlockPlanning(state, now); }

TEST(BeginBlockPlanning, changesTheWorkflowStateAndNothingElse)
{
    QuillmereState state = crowdedStateIn(idle);
    state.currentBlock.reset();
    QuillmereState expected = state;
    expected.workflowState = blockPlanning;
    expected.updatedAt = now;

    engine.beginBlockPlanning(state, now);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(BeginBlockPlanning, isRefusedWhileAScheduledBlockWaits)
{
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, stateWithScheduledBlock(), beginPlanning));
}

TEST(BeginBlockPlanning, isRefusedWhileAnyBlockIsInHand)
{
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock = Block::default_(moment);
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, beginPlanning));
}

TEST(BeginBlockPlanning, isRefusedWhenPlanningAlready)
{
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, stateIn(blockPlanning), beginPlanning));
}

// startBlock -----------------------------------------------------------------------------------------

struct BlockNumbers {
    double focusSeconds;
    double breakSeconds;
    std::int64_t cycles;
};

Block blockWith(const BlockNumbers& numbers)
{
    Block block = sampleBlock(9);
    block.focusDurationSeconds = numbers.focusSeconds;
    block.breakDurationSeconds = numbers.breakSeconds;
    block.cycleCount = numbers.cycles;
    return block;
}

std::string textOf(const BlockNumbers& numbers)
{
    return std::to_string(numbers.focusSeconds) + ", " + std::to_string(numbers.breakSeconds) + ", " +
           std::to_string(numbers.cycles);
}

constexpr auto unworkable = std::to_array<BlockNumbers>({
    {0, 300, 3},
    {-0.0, 300, 3},
    {-1, 300, 3},
    {-infinity, 300, 3},
    {notANumber, 300, 3},
    {1500, 0, 3},
    {1500, -300, 3},
    {1500, notANumber, 3},
    {1500, 300, 0},
    {1500, 300, -1},
    {1500, 300, least},
    {0, 0, 0},
});

constexpr auto workable = std::to_array<BlockNumbers>({
    {1500, 300, 1},
    {0.5, 0.25, 1},
    {smallest, smallest, 1},
    {1500, 300, most},
    // No timer can count these; the program must prevent them.
    {1e300, infinity, 1},
});

TEST(StartBlock, makesTheGivenBlockTheCurrentOneUnchanged)
{
    QuillmereState state = crowdedStateIn(blockPlanning);
    Block block = blockInWork(9, 2);
    block.plannedStart = moment - 60;
    block.scheduledStartTriggeredAt = moment - 30;
    block.reflection = sampleReflection();
    block.completedAt = moment - 10;
    QuillmereState expected = state;
    expected.currentBlock = block;
    expected.plannedNextSession.reset();
    expected.workflowState = sessionPlanning;
    expected.updatedAt = now;

    engine.startBlock(state, block, now);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(StartBlock, clearsAPlanLeftOverFromEarlier)
{
    QuillmereState state = stateIn(blockPlanning);
    state.plannedNextSession = samplePlan(5);
    engine.startBlock(state, sampleBlock(9), now);
    EXPECT_EQ(state.plannedNextSession, std::nullopt);
}

TEST(StartBlock, takesTheBlockThatIsBeingEdited)
{
    QuillmereState state = stateWithScheduledBlock();
    const Block block = *state.currentBlock;
    engine.editScheduledBlock(state, now);
    // The argument is a copy of the block that it replaces.
    engine.startBlock(state, *state.currentBlock, now);
    EXPECT_EQ(state.currentBlock, block);
}

TEST(StartBlock, refusesADurationOrCycleCountThatIsNotAboveZero)
{
    for (const BlockNumbers& numbers : unworkable) {
        SCOPED_TRACE(textOf(numbers));
        EXPECT_TRUE(
            isRefused(WorkflowError::invalidDuration, crowdedStateIn(blockPlanning),
                      [&](QuillmereState& state) { engine.startBlock(state, blockWith(numbers), now); }));
    }
}

TEST(StartBlock, acceptsAllThatIsAboveZero)
{
    for (const BlockNumbers& numbers : workable) {
        SCOPED_TRACE(textOf(numbers));
        QuillmereState state = stateIn(blockPlanning);
        engine.startBlock(state, blockWith(numbers), now);
        EXPECT_EQ(state.currentBlock, blockWith(numbers));
    }
}

TEST(StartBlock, checksNothingElseInTheBlock)
{
    QuillmereState state = stateIn(blockPlanning);
    Block bare = Block::default_(moment);
    bare.outcomes.clear();
    engine.startBlock(state, bare, now);
    EXPECT_EQ(state.currentBlock, bare);
}

TEST(StartBlock, checksTheWorkflowStateBeforeTheBlock)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        if (workflowState == blockPlanning) {
            continue;
        }
        SCOPED_TRACE(rawValue(workflowState));
        for (const BlockNumbers& numbers : unworkable) {
            EXPECT_TRUE(
                isRefused(WorkflowError::invalidTransition, crowdedStateIn(workflowState),
                          [&](QuillmereState& state) { engine.startBlock(state, blockWith(numbers), now); }));
        }
    }
}

// completeBlockReview --------------------------------------------------------------------------------

void completeReview(QuillmereState& state) { engine.completeBlockReview(state, sampleReflection(), now); }

TEST(CompleteBlockReview, archivesTheBlockAndClearsAllThatBelongedToIt)
{
    QuillmereState state = crowdedStateIn(blockReview);
    QuillmereState expected = state;
    Block finished = *state.currentBlock;
    finished.reflection = sampleReflection();
    finished.completedAt = now;
    expected.blockHistory.insert(expected.blockHistory.begin(), finished);
    expected.currentBlock.reset();
    expected.plannedNextSession.reset();
    expected.breakStartedAt.reset();
    expected.breakExtensionSeconds = 0;
    expected.breakEndNotifiedAt.reset();
    expected.workflowState = idle;
    expected.updatedAt = now;

    completeReview(state);
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(CompleteBlockReview, replacesAnEarlierReflectionAndCompletion)
{
    QuillmereState state = stateIn(blockReview);
    state.currentBlock->reflection = BlockReview{"an", "earlier", "reflection", "of", "it"};
    state.currentBlock->completedAt = moment - 1;
    completeReview(state);
    EXPECT_EQ(state.blockHistory.front().reflection, sampleReflection());
    EXPECT_EQ(state.blockHistory.front().completedAt, now);
}

TEST(CompleteBlockReview, isRefusedWithInvalidTransitionWhenTheBlockIsLost)
{
    QuillmereState state = crowdedStateIn(blockReview);
    state.currentBlock.reset();
    EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, completeReview));
}

TEST(CompleteBlockReview, leavesNoBreakExtensionBehind)
{
    QuillmereState state = stateIn(breaking);
    state.currentBlock->cycleCount = 2;
    engine.extendBreak(state, 300, now);
    engine.endBreak(state, now);
    engine.startFocus(state, std::nullopt, now);
    engine.endFocus(state, now);
    engine.saveReviewAndStartBreak(state, sampleReview(2), std::nullopt, now);
    // A state from a file may have it.
    state.breakExtensionSeconds = 300;
    completeReview(state);
    EXPECT_EQ(state.breakExtensionSeconds, 0);
}

TEST(CompleteBlockReview, putsTheLaterOfTwoBlocksFirst)
{
    QuillmereState state = QuillmereState::initial(moment);
    for (unsigned number = 1; number <= 2; ++number) {
        Block block = sampleBlock(number);
        block.cycleCount = 1;
        engine.beginBlockPlanning(state, now);
        engine.startBlock(state, block, now);
        engine.startFocus(state, samplePlan(1), now);
        engine.endFocus(state, now);
        engine.saveReviewAndStartBreak(state, sampleReview(1), std::nullopt, now);
        engine.completeBlockReview(state, sampleReflection(), now + number);
    }
    ASSERT_EQ(state.blockHistory.size(), 2U);
    EXPECT_EQ(state.blockHistory[0].id, sampleBlock(2).id);
    EXPECT_EQ(state.blockHistory[1].id, sampleBlock(1).id);
    EXPECT_EQ(state.blockHistory[0].completedAt, now + 2);
    EXPECT_EQ(state.blockHistory[1].completedAt, now + 1);
}

TEST(CompleteBlockReview, keepsTheLaterBlockFirstThoughTheClockWentBack)
{
    QuillmereState state = crowdedStateIn(blockReview);
    const Identifier later = state.currentBlock->id;
    engine.completeBlockReview(state, sampleReflection(), moment - 1'000'000);
    EXPECT_EQ(state.blockHistory.front().id, later);
}

TEST(CompleteBlockReview, letsANewBlockBePlannedAtOnce)
{
    QuillmereState state = stateIn(blockReview);
    completeReview(state);
    EXPECT_EQ(refusalOf([&] { engine.beginBlockPlanning(state, now); }), std::nullopt);
}

}  // namespace
}  // namespace quillmere::test
