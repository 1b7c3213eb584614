// A whole block, from its planning to the history.
#include <quillmere/engine/workflow_engine.hpp>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

/// Two cycles of 1500 and 300 seconds.
Block shortBlock()
{
    Block block = sampleBlock(1);
    block.cycleCount = 2;
    return block;
}

/// The expected session after the review.
WorkSession finishedSession(const WorkSession& actual, std::int64_t number, double from, double to,
                            double paused)
{
    return {
        .id = actual.id,  // a random one
        .number = number,
        .plan = samplePlan(static_cast<unsigned>(number)),
        .startedAt = moment + from,
        .plannedDurationSeconds = 1500,
        .pausedAt = std::nullopt,
        .accumulatedPausedSeconds = paused,
        .endedAt = moment + to,
        .review = sampleReview(static_cast<unsigned>(number)),
    };
}

TEST(ABlock, goesFromItsPlanningToTheHistory)
{
    const QuillmereState initial = QuillmereState::initial(moment);
    QuillmereState state = initial;
    engine.beginBlockPlanning(state, moment + 1);
    engine.startBlock(state, shortBlock(), moment + 2);

    // A session with a pause, ended by the timer; and a break that is extended after its end.
    engine.startFocus(state, samplePlan(1), moment + 10);
    engine.pauseFocus(state, moment + 100);
    engine.resumeFocus(state, moment + 160);
    EXPECT_EQ(engine.evaluateTimer(state, moment + 1569), TimerTransition::noChange);
    EXPECT_EQ(engine.evaluateTimer(state, moment + 1570), TimerTransition::focusEnded);
    engine.saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), moment + 1600);
    EXPECT_EQ(engine.evaluateTimer(state, moment + 1900), TimerTransition::breakEnded);
    engine.extendBreak(state, 120, moment + 1910);
    EXPECT_EQ(engine.evaluateTimer(state, moment + 2020), TimerTransition::breakEnded);
    engine.endBreak(state, moment + 2100);

    // A session with the saved plan, ended while paused, with a question in between.
    engine.startFocus(state, std::nullopt, moment + 2200);
    engine.addQuestion(state, "Which build fails?", moment + 2300);
    engine.pauseFocus(state, moment + 2400);
    engine.answerQuestion(state, state.agentQuestions[0].id, "The nightly one", moment + 2450);
    engine.endFocus(state, moment + 2500);
    engine.saveReviewAndStartBreak(state, sampleReview(2), std::nullopt, moment + 2600);
    engine.completeBlockReview(state, sampleReflection(), moment + 2700);

    ASSERT_EQ(state.blockHistory.size(), 1U);
    ASSERT_EQ(state.blockHistory[0].sessions.size(), 2U);
    ASSERT_EQ(state.agentQuestions.size(), 1U);
    Block finished = shortBlock();
    const auto& sessions = state.blockHistory[0].sessions;
    finished.sessions = {finishedSession(sessions[0], 1, 10, 1570, 60),
                         finishedSession(sessions[1], 2, 2200, 2500, 100)};
    finished.reflection = sampleReflection();
    finished.completedAt = moment + 2700;
    QuillmereState expected = initial;
    expected.blockHistory = {finished};
    expected.agentQuestions = {{
        .id = state.agentQuestions[0].id,  // a random one
        .question = "Which build fails?",
        .createdAt = moment + 2300,
        .answer = "The nightly one",
        .answeredAt = moment + 2450,
    }};
    expected.updatedAt = moment + 2700;
    EXPECT_TRUE(isExactly(state, expected));
}

TEST(ABlock, canBeScheduledEditedAndStartedByTheScheduleBeforeItIsWorked)
{
    QuillmereState state = QuillmereState::initial(moment);
    Block block = shortBlock();
    block.plannedStart = moment + 600;
    engine.beginBlockPlanning(state, moment + 1);
    engine.scheduleBlock(state, block, moment + 2);
    engine.editScheduledBlock(state, moment + 3);
    // The planned start passes while the block is edited.
    EXPECT_FALSE(engine.evaluateSchedule(state, moment + 700));
    block.plannedStart = moment + 900;
    engine.scheduleBlock(state, block, moment + 710);
    EXPECT_FALSE(engine.evaluateSchedule(state, moment + 899));
    EXPECT_TRUE(engine.evaluateSchedule(state, moment + 900));
    engine.startFocus(state, samplePlan(1), moment + 910);
    EXPECT_EQ(rawValue(state.workflowState), "focusing");
    EXPECT_EQ(state.currentBlock->plannedStart, moment + 900);
    EXPECT_EQ(state.currentBlock->scheduledStartTriggeredAt, moment + 900);
}

}  // namespace
}  // namespace quillmere::test
