// The events that stand follow from the state alone.
#include "notices/standing_events.hpp"

#include "amendments/go_on.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/records/base/enumeration.hpp>

#include <set>

#include "program_testing.hpp"
#include "workspace/catching_up.hpp"

namespace quillmere::test {
namespace {

using notices::mayBeDelivered;
using notices::StandingEvent;
using notices::standingEvents;

const WorkflowEngine engine;

QuillmereState endedByTimer()
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    engine.evaluateTimer(state, moment + 1'500);
    return state;
}

QuillmereState breakAnnounced()
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    engine.evaluateTimer(state, moment + 300);
    return state;
}

QuillmereState begunBySchedule()
{
    QuillmereState state = stateWithScheduledBlock();
    engine.evaluateSchedule(state, moment + 3'600);
    return state;
}

TEST(StandingEvents, areNoneWherePersonsDidEverything)
{
    for (const WorkflowState state : allCases<WorkflowState>()) {
        EXPECT_TRUE(standingEvents(stateIn(state)).empty()) << rawValue(state);
    }
    EXPECT_TRUE(standingEvents(stateWithScheduledBlock()).empty());
}

TEST(StandingEvents, includeASessionWhoseTimeRanOut)
{
    const auto events = standingEvents(endedByTimer());
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0],
              (StandingEvent{.kind = work::EventKind::focusEnded,
                             .key = "focus-" + identifier(401).text() + "-" +
                                    std::to_string(wholeSeconds(moment.secondsSince1970()) + 1'500),
                             .at = moment + 1'500,
                             .text = "Outcome of session 1"}));
}

TEST(StandingEvents, includeASessionWhosePlannedLengthHasAFraction)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock->sessions.back().plannedDurationSeconds = 90.7;
    workspace::catchUp(state, moment + 200);
    ASSERT_EQ(state.workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(standingEvents(state).size(), 1U);
}

TEST(StandingEvents, leaveOutASessionThatThePersonEnded)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    engine.endFocus(state, moment + 1'499);
    EXPECT_TRUE(standingEvents(state).empty());
}

TEST(StandingEvents, countPausesAsTheTimerDoes)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    engine.pauseFocus(state, moment + 100);
    engine.resumeFocus(state, moment + 700);
    QuillmereState endedByHand = state;
    engine.endFocus(endedByHand, moment + 2'099);
    EXPECT_TRUE(standingEvents(endedByHand).empty());
    engine.evaluateTimer(state, moment + 2'100);
    EXPECT_EQ(standingEvents(state).size(), 1U);
}

TEST(StandingEvents, countThePauseInWhichASessionWasEnded)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    engine.pauseFocus(state, moment + 100);
    engine.endFocus(state, moment + 5'000);
    EXPECT_TRUE(standingEvents(state).empty());
}

TEST(StandingEvents, leaveOutAReviewedSession)
{
    QuillmereState state = endedByTimer();
    engine.saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), moment + 1'600);
    EXPECT_TRUE(standingEvents(state).empty());
}

TEST(StandingEvents, leaveOutAReviewedLastSession)
{
    EXPECT_TRUE(standingEvents(stateIn(WorkflowState::blockReview)).empty());
}

TEST(StandingEvents, includeABreakWhoseEndIsRecorded)
{
    const auto events = standingEvents(breakAnnounced());
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, work::EventKind::breakEnded);
    EXPECT_EQ(events[0].at, moment + 300);
    EXPECT_EQ(events[0].text, "Outcome of session 2");
}

TEST(StandingEvents, tellTheEndOfAnExtendedBreakFromItsFirstEnd)
{
    QuillmereState state = breakAnnounced();
    const auto first = standingEvents(state);
    engine.extendBreak(state, 60, moment + 310);
    EXPECT_TRUE(standingEvents(state).empty());
    engine.evaluateTimer(state, moment + 370);
    const auto second = standingEvents(state);
    ASSERT_EQ(second.size(), 1U);
    EXPECT_NE(second[0].key, first[0].key);
}

TEST(StandingEvents, tellTheSecondEndOfASessionThatWentOnFromItsFirst)
{
    QuillmereState state = endedByTimer();
    const auto first = standingEvents(state);
    amendments::goOn(state, 600, amendments::TimeSinceEnd::countsAsFocus, moment + 1'600);
    EXPECT_TRUE(standingEvents(state).empty());
    engine.evaluateTimer(state, moment + 2'100);
    const auto second = standingEvents(state);
    ASSERT_EQ(second.size(), 1U);
    EXPECT_NE(second[0].key, first[0].key);
}

TEST(StandingEvents, includeABlockThatBeganBySchedule)
{
    const auto events = standingEvents(begunBySchedule());
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0].kind, work::EventKind::blockStarted);
    EXPECT_EQ(events[0].at, moment + 3'600);
    EXPECT_EQ(events[0].text, "Chapter one");
}

TEST(StandingEvents, leaveOutABlockThatThePersonBegan)
{
    QuillmereState state = stateWithScheduledBlock();
    engine.startScheduledBlockNow(state, moment + 60);
    EXPECT_TRUE(standingEvents(state).empty());
}

TEST(StandingEvents, leaveOutABlockThatHadASession)
{
    QuillmereState state = begunBySchedule();
    engine.startFocus(state, samplePlan(1), moment + 3'700);
    EXPECT_TRUE(standingEvents(state).empty());
    engine.endFocus(state, moment + 3'800);
    engine.saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), moment + 3'900);
    engine.endBreak(state, moment + 3'950);
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    EXPECT_TRUE(standingEvents(state).empty());
}

TEST(StandingEvents, includeEveryOpenQuestion)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    engine.addQuestion(state, "Which build?", moment);
    engine.addQuestion(state, "May I?", moment + 1);
    engine.answerQuestion(state, state.agentQuestions[0].id, "The nightly", moment + 2);
    const auto events = standingEvents(state);
    ASSERT_EQ(events.size(), 1U);
    EXPECT_EQ(events[0], (StandingEvent{.kind = work::EventKind::questionRaised,
                                        .key = "question-" + state.agentQuestions[1].id.text(),
                                        .at = moment + 1,
                                        .text = "May I?"}));
}

TEST(StandingEvents, haveUniqueKeysThatAreFileNames)
{
    std::set<std::string> keys;
    for (QuillmereState state : {endedByTimer(), breakAnnounced(), begunBySchedule()}) {
        state.agentQuestions = fullState().agentQuestions;
        for (const StandingEvent& event : standingEvents(state)) {
            EXPECT_EQ(event.key.find_first_not_of("abcdefghijklmnopqrstuvwxyzABCDEF0123456789-"),
                      std::string::npos)
                << event.key;
            keys.insert(event.key);
        }
    }
    EXPECT_EQ(keys.size(), 4U);
}

TEST(StandingEvents, areNoneInAStateThatLacksTheirBlockOrSession)
{
    QuillmereState state = breakAnnounced();
    state.currentBlock.reset();
    EXPECT_TRUE(standingEvents(state).empty());
    state = endedByTimer();
    state.currentBlock->sessions.clear();
    EXPECT_TRUE(standingEvents(state).empty());
}

TEST(StandingEvents, mayBeDeliveredInFocusUnlessTheyAreQuestions)
{
    const StandingEvent question{
        .kind = work::EventKind::questionRaised, .key = "question-1", .at = moment, .text = "May I?"};
    QuillmereState state = stateIn(WorkflowState::focusing);
    EXPECT_FALSE(mayBeDelivered(question, state));
    for (const work::EventKind kind :
         {work::EventKind::focusEnded, work::EventKind::breakEnded, work::EventKind::blockStarted}) {
        EXPECT_TRUE(mayBeDelivered({.kind = kind, .key = "key", .at = moment, .text = ""}, state));
    }
    engine.pauseFocus(state, moment + 1);
    EXPECT_TRUE(mayBeDelivered(question, state));
}

}  // namespace
}  // namespace quillmere::test
