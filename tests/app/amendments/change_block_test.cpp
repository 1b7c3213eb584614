#include "amendments/change_block.hpp"

#include <limits>

#include "amendment_testing.hpp"
#include "amendments/limits.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

using amendments::BlockChange;
using amendments::changeBlock;
using amendments::Possible;
using amendments::PossibleLengths;

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The state after a change at `soon`.
QuillmereState changed(const QuillmereState& state, const BlockChange& change)
{
    return amended(state, soon, [&](auto& s) { changeBlock(s, change, soon); });
}

amendments::Refusal refusalOf(const QuillmereState& state, const BlockChange& change)
{
    return refusal(state, [&](auto& s) { changeBlock(s, change, soon); });
}

std::string refusedChange(const QuillmereState& state, const BlockChange& change)
{
    return refusalOf(state, change).what();
}

TEST(ChangeBlock, setsWhatIsGivenAndNothingElse)
{
    const QuillmereState before = stateIn(WorkflowState::focusing);
    QuillmereState expected = before;
    Block& block = *expected.currentBlock;
    block.whyValue = "why";
    block.doneTest = "";
    block.hazards = "hazards";
    block.measurableCheck = "check";
    block.contextNotes = "notes";
    block.focusDurationSeconds = 3'000;
    block.breakDurationSeconds = 600;
    block.cycleCount = 5;
    expected.updatedAt = soon;
    EXPECT_EQ(changed(before, {.texts = {.whyValue = "why",
                                         .doneTest = "",
                                         .hazards = "hazards",
                                         .measurableCheck = "check",
                                         .contextNotes = "notes"},
                               .focusDurationSeconds = 3'000,
                               .breakDurationSeconds = 600,
                               .cycleCount = 5}),
              expected);
    expected = before;
    expected.updatedAt = soon;
    EXPECT_EQ(changed(before, {}), expected);
}

TEST(ChangeBlock, leavesTheLengthOfARunningSession)
{
    const QuillmereState state = changed(stateIn(WorkflowState::focusing), {.focusDurationSeconds = 60});
    EXPECT_EQ(state.currentSession()->plannedDurationSeconds, 1'500);
}

TEST(ChangeBlock, replacesTheOutcomesAndKeepsThatOfASession)
{
    const QuillmereState before = stateIn(WorkflowState::focusing);
    const std::vector<Outcome> outcomes = {{.id = identifier(7), .title = "New"},
                                           {.id = before.currentBlock->outcomes[0].id, .title = "Renamed"}};
    EXPECT_EQ(changed(before, {.texts = {.outcomes = outcomes}}).currentBlock->outcomes, outcomes);
}

TEST(ChangeBlock, refusesToRemoveAnOutcomeThatASessionServes)
{
    const std::vector<Outcome> outcomes = {{.id = identifier(7), .title = "New"}};
    EXPECT_EQ(refusedChange(stateIn(WorkflowState::focusing), {.texts = {.outcomes = outcomes}}),
              "Session 1 serves the outcome \"Chapter one\", so that it cannot be removed. Possible: another "
              "title for it.");
    QuillmereState state = stateIn(WorkflowState::breaking);
    state.currentBlock->sessions.back().plan.blockOutcomeID.reset();
    EXPECT_EQ(refusedChange(state, {.texts = {.outcomes = outcomes}}),
              "The next session serves the outcome \"Chapter one\", so that it cannot be removed. Possible: "
              "another title for it.");
}

TEST(ChangeBlock, refusesOutcomesThatAreNoList)
{
    const QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    EXPECT_EQ(refusedChange(state, {.texts = {.outcomes = std::vector<Outcome>{}}}),
              "A block keeps at least one outcome. Possible: another title for it.");
    const std::vector<Outcome> twice = {{.id = identifier(7), .title = "One"},
                                        {.id = identifier(7), .title = "Two"}};
    EXPECT_EQ(refusedChange(state, {.texts = {.outcomes = twice}}),
              "Two outcomes have the same identifier. Possible: one for each outcome.");
}

TEST(ChangeBlock, refusesLengthsBeyondTheLimits)
{
    const QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    const Possible any = PossibleLengths{amendments::shortestDuration, amendments::longestDuration};
    for (const double length : {0.5, 0.0, -60.0, amendments::longestDuration + 1, notANumber}) {
        const amendments::Refusal focus = refusalOf(state, {.focusDurationSeconds = length});
        EXPECT_STREQ(focus.what(), "A focus session cannot have this length.");
        EXPECT_EQ(focus.possible(), any);
        const amendments::Refusal pause = refusalOf(state, {.breakDurationSeconds = length});
        EXPECT_STREQ(pause.what(), "A break cannot have this length.");
        EXPECT_EQ(pause.possible(), any);
    }
}

TEST(ChangeBlock, appliesANewLengthToTheRunningBreak)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    WorkflowEngine().extendBreak(state, 30, moment);
    state = changed(state, {.breakDurationSeconds = 90});
    EXPECT_EQ(TimerSnapshot::derive(state, soon)->remainingSeconds, 90 + 30 - 60);
}

TEST(ChangeBlock, refusesABreakShorterThanWhatHasPassedOfIt)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    WorkflowEngine().extendBreak(state, 30, moment);
    const amendments::Refusal refused = refusalOf(state, {.breakDurationSeconds = 29});
    EXPECT_STREQ(
        refused.what(),
        "The running break cannot become shorter than what has passed of it, nor longer than 366 days.");
    EXPECT_EQ(refused.possible(), Possible(PossibleLengths{30, amendments::longestDuration}));
    EXPECT_EQ(TimerSnapshot::derive(changed(state, {.breakDurationSeconds = 30}), soon)->remainingSeconds, 0);
}

TEST(ChangeBlock, letsTheEndOfABreakBeAnnouncedAgainWhenItLiesAhead)
{
    const QuillmereState over = edited(stateIn(WorkflowState::breaking), [](auto& s) {
        s.currentBlock->breakDurationSeconds = 60;
        WorkflowEngine().evaluateTimer(s, soon);
    });
    ASSERT_TRUE(over.breakEndNotifiedAt);
    EXPECT_FALSE(changed(over, {.breakDurationSeconds = 61}).breakEndNotifiedAt);
    EXPECT_TRUE(changed(over, {.breakDurationSeconds = 60}).breakEndNotifiedAt);
}

TEST(ChangeBlock, announcesNoEndAgainForATextWhenTheClockWasSetBack)
{
    const QuillmereState over = edited(stateIn(WorkflowState::breaking),
                                       [](auto& s) { WorkflowEngine().evaluateTimer(s, moment + 300); });
    const QuillmereState state =
        amended(over, soon, [](auto& s) { changeBlock(s, {.texts = {.whyValue = "why"}}, soon); });
    EXPECT_EQ(state.breakEndNotifiedAt, moment + 300);
}

TEST(ChangeBlock, needsMoreSessionsThanHaveBegun)
{
    using enum WorkflowState;
    struct Example {
        WorkflowState workflowState;
        std::int64_t begun;
        std::string way;
    };
    const Example examples[] = {
        {focusing, 1, "Possible: 2 to 1000, or review --finish, which ends the block."},
        {sessionReview, 1, "Possible: 2 to 1000, or review --finish, which ends the block."},
        {breaking, 1, "Possible: 2 to 1000, or finish, which ends the block."},
        {blockReview, 3, "Possible: 4 to 1000, or reflect, which ends the block."},
    };
    for (const Example& example : examples) {
        const QuillmereState state = stateIn(example.workflowState);
        for (const std::int64_t count : {std::int64_t(-1), example.begun, std::int64_t(1'001)}) {
            EXPECT_EQ(refusedChange(state, {.cycleCount = count}),
                      "The block cannot have this number of sessions, since it has begun " +
                          std::to_string(example.begun) + ". " + example.way);
        }
        EXPECT_EQ(changed(state, {.cycleCount = example.begun + 1}).currentBlock->cycleCount,
                  example.begun + 1);
    }
}

TEST(ChangeBlock, needsASessionAtLeast)
{
    for (const std::int64_t count : {0, -1, 1'001}) {
        EXPECT_EQ(refusedChange(stateIn(WorkflowState::sessionPlanning), {.cycleCount = count}),
                  "A block cannot have this number of sessions. Possible: 1 to 1000.");
    }
    EXPECT_EQ(
        changed(stateIn(WorkflowState::sessionPlanning), {.cycleCount = 1'000}).currentBlock->cycleCount,
        1'000);
}

TEST(ChangeBlock, namesNoNumberWhenTheMostSessionsHaveBegun)
{
    QuillmereState state = stateIn(WorkflowState::blockReview);
    state.currentBlock->sessions.resize(1'000, state.currentBlock->sessions.back());
    EXPECT_EQ(
        refusedChange(state, {.cycleCount = 1'000}),
        "The block cannot have this number of sessions, since it has begun 1000. Possible: reflect, which "
        "ends the block.");
}

TEST(ChangeBlock, leadsFromTheReviewOfTheBlockToAnotherSession)
{
    QuillmereState state = changed(stateIn(WorkflowState::blockReview), {.cycleCount = 4});
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    WorkflowEngine().startFocus(state, samplePlan(4), soon);
    EXPECT_EQ(state.currentSession()->number, 4);
    EXPECT_EQ(changed(stateIn(WorkflowState::blockReview), {.texts = {.whyValue = "why"}}).workflowState,
              WorkflowState::blockReview);
}

TEST(ChangeBlock, isRefusedWithoutABlockThatHasBegun)
{
    EXPECT_EQ(refusedChange(stateIn(WorkflowState::blockPlanning), {}), "No block has begun.");
    EXPECT_EQ(refusedChange(stateWithScheduledBlock(), {}), "No block has begun.");
}

}  // namespace
}  // namespace quillmere::test
