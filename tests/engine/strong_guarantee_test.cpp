// Every exception, std::bad_alloc included, leaves the state unchanged.
#include <quillmere/engine/workflow_engine.hpp>

#include <set>
#include <string>
#include <utility>

#include "engine_testing.hpp"
#include "support/failing_allocations.hpp"
#include "workflow_map.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

/// Lets the first allocation of an operation on `state` fail, then the second, and so on until it finishes;
/// returns how many failed.
template <class Operation>
std::size_t failEveryAllocationOf(QuillmereState& state, Operation operation,
                                  std::optional<WorkflowError::Case> expectedRefusal = std::nullopt)
{
    const QuillmereState before = state;
    const std::size_t blocks = blocksInUse();
    // The refusal is checked below, when no allocation is set to fail any more.
    std::optional<WorkflowError::Case> refusal;
    const std::size_t failures = failEveryAllocation([&] { refusal = refusalOf([&] { operation(state); }); },
                                                     [&](bool threwBadAlloc) {
                                                         EXPECT_TRUE(threwBadAlloc);
                                                         EXPECT_EQ(blocksInUse(), blocks) << "memory is lost";
                                                         EXPECT_TRUE(isExactly(state, before));
                                                     });
    EXPECT_EQ(refusal, expectedRefusal);
    return failures;
}

/// The operations that allocate.
const std::set<std::string_view> allocating = {
    "startBlock",          "scheduleBlock", "startFocus",     "saveReviewAndStartBreak",
    "completeBlockReview", "addQuestion",   "answerQuestion",
};

TEST(StrongGuarantee, holdsForEveryAllocationThatFails)
{
    for (const Arrow& arrow : arrows()) {
        SCOPED_TRACE(nameOf(arrow));
        QuillmereState state = startOf(arrow);
        bool succeeded = false;
        const std::size_t failures = failEveryAllocationOf(
            state, [&](QuillmereState& changed) { succeeded = arrow.walk(changed, now); });
        EXPECT_TRUE(succeeded);
        EXPECT_EQ(state.updatedAt, now);
        EXPECT_EQ(failures > 0, allocating.contains(arrow.operation)) << failures << " allocations";
    }
}

TEST(StrongGuarantee, holdsWhenTheListsHaveRoomToSpare)
{
    for (const Arrow& arrow : arrows()) {
        SCOPED_TRACE(nameOf(arrow));
        QuillmereState state = startOf(arrow);
        state.blockHistory.reserve(8);
        state.agentQuestions.reserve(8);
        if (state.currentBlock) {
            state.currentBlock->sessions.reserve(8);
        }
        failEveryAllocationOf(state, [&](QuillmereState& changed) { arrow.walk(changed, now); });
        EXPECT_EQ(state.updatedAt, now);
    }
}

TEST(StrongGuarantee, keepsTheSavedPlanWhenTheSessionCannotBeStarted)
{
    QuillmereState state = crowdedStateIn(sessionPlanning);
    const std::size_t failures = failEveryAllocationOf(
        state, [](QuillmereState& changed) { engine.startFocus(changed, std::nullopt, now); });
    // The copy of the plan, and the capacity for the session.
    EXPECT_GE(failures, 2U);
    EXPECT_EQ(state.currentSession()->plan, samplePlan(3));
}

TEST(StrongGuarantee, keepsTheBlockInHandWhenTheHistoryCannotGrow)
{
    QuillmereState state = crowdedStateIn(blockReview);
    const Block block = *state.currentBlock;
    // The texts of this reflection are empty: only the history allocates.
    const std::size_t failures = failEveryAllocationOf(
        state, [](QuillmereState& changed) { engine.completeBlockReview(changed, BlockReview{}, now); });
    EXPECT_EQ(failures, 1U);
    EXPECT_EQ(state.blockHistory.front().sessions, block.sessions);
    EXPECT_EQ(state.blockHistory.size(), 2U);
}

TEST(StrongGuarantee, holdsWhenTheOperationIsRefused)
{
    for (const Arrow& arrow : arrows()) {
        if (arrow.from()) {
            SCOPED_TRACE(nameOf(arrow));
            QuillmereState state = startOf(arrow, complete);
            const QuillmereState before = state;
            const bool throws = arrow.elsewhere == Elsewhere::refuses;
            failEveryAllocationOf(
                state, [&](QuillmereState& changed) { arrow.walk(changed, now); },
                throws ? std::optional(WorkflowError::invalidTransition) : std::nullopt);
            EXPECT_TRUE(isExactly(state, before));
        }
    }
}

/// The allocations of an operation.
template <class Operation>
std::size_t allocationsOf(Operation operation)
{
    const std::size_t before = allocationsMade();
    operation();
    return allocationsMade() - before;
}

TEST(Arguments, areMovedInAndNotCopied)
{
    Block block = blockInWork(9, 3);
    block.plannedStart = now;
    QuillmereState planning = crowdedStateIn(blockPlanning);
    EXPECT_EQ(allocationsOf([&] { engine.scheduleBlock(planning, std::move(block), now); }), 0U);

    block = blockInWork(9, 3);
    planning = crowdedStateIn(blockPlanning);
    EXPECT_EQ(allocationsOf([&] { engine.startBlock(planning, std::move(block), now); }), 0U);

    // Capacity for the session, in a full list.
    QuillmereState ready = crowdedStateIn(sessionPlanning);
    std::optional<SessionPlan> plan = samplePlan(9);
    EXPECT_EQ(allocationsOf([&] { engine.startFocus(ready, std::move(plan), now); }), 1U);

    QuillmereState reviewing = crowdedStateIn(sessionReview);
    SessionReview review = sampleReview(9);
    plan = samplePlan(9);
    EXPECT_EQ(allocationsOf([&] {
                  engine.saveReviewAndStartBreak(reviewing, std::move(review), std::move(plan), now);
              }),
              0U);

    // Capacity for the block, in a full list.
    QuillmereState closing = crowdedStateIn(blockReview);
    BlockReview reflection = sampleReflection();
    EXPECT_EQ(allocationsOf([&] { engine.completeBlockReview(closing, std::move(reflection), now); }), 1U);

    QuillmereState asked = fullState();
    std::string text = "A text that is too long to be kept inside the string";
    EXPECT_EQ(allocationsOf([&] { engine.answerQuestion(asked, identifier(602), std::move(text), now); }),
              0U);
}

}  // namespace
}  // namespace quillmere::test
