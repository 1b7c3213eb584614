// Amendments with keys and forms.
#include "screen/screen_of_a_person.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

class SteeringAtTheScreen : public ScreenOfAPerson {};

TEST_F(SteeringAtTheScreen, leavesPlanningWithoutAQuestionWhenNothingWasTyped)
{
    opens();
    presses("p");
    presses(escape);
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_TRUE(shows("Planning is left."));
}

TEST_F(SteeringAtTheScreen, asksBeforePlanningWithTypedWordsIsLeftAndOffersThemAgain)
{
    opens();
    presses("pChapter");
    presses(escape);
    EXPECT_TRUE(shows("Leave the planning? What you typed stays a draft."));
    presses("n");
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockPlanning);
    presses(escape);
    presses("y");
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    presses("p");
    EXPECT_TRUE(shows("Chapter"));
}

TEST_F(SteeringAtTheScreen, leavesAScheduledBlockAsItWas)
{
    opens(stateWithScheduledBlock());
    presses("e");
    presses(escape);
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_EQ(state.currentBlock, stateWithScheduledBlock().currentBlock);
    EXPECT_TRUE(shows("The scheduled block is as it was."));
}

TEST_F(SteeringAtTheScreen, choosesWhatBecomesOfABlockWhoseStartHasPassed)
{
    const auto choosesAfterTheStart = [this](const std::string& keys) {
        opens(stateWithScheduledBlock());
        presses("e");
        waits(7'200);
        presses(escape);
        EXPECT_TRUE(shows("its start has passed: start it now"));
        presses(keys);
    };
    choosesAfterTheStart("s");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    person.now = moment;
    choosesAfterTheStart("t+1h");
    presses(save);
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(person.state().currentBlock->plannedStart, person.now + 3'600);
    person.now = moment;
    choosesAfterTheStart("dy");
    EXPECT_FALSE(person.state().currentBlock);
    presses("p");
    EXPECT_TRUE(shows("Chapter one"));
}

TEST_F(SteeringAtTheScreen, dropsABlockBeforeItsFirstSessionAndKeepsItsWords)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses(escape);
    presses("dy");
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_FALSE(person.state().currentBlock);
    presses("p");
    EXPECT_TRUE(shows("Chapter one"));
}

TEST_F(SteeringAtTheScreen, goesBackFromTheKeysToTheForm)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses("Half");
    presses(escape);
    EXPECT_FALSE(shows("Half"));
    presses(escape);
    presses(" a plan");
    EXPECT_TRUE(shows("Half a plan"));
}

TEST_F(SteeringAtTheScreen, lengthensAndShortensASession)
{
    opens(stateIn(WorkflowState::focusing));
    const double planned = person.state().currentSession()->plannedDurationSeconds;
    const auto isLongerBy = [&](double seconds) {
        return person.state().currentSession()->plannedDurationSeconds == planned + seconds;
    };
    presses("+");
    EXPECT_TRUE(isLongerBy(300));
    presses("--");
    EXPECT_TRUE(isLongerBy(-300));
    presses("l-10m");
    presses(save);
    EXPECT_TRUE(isLongerBy(-900));
    presses("lsoon");
    presses(save);
    EXPECT_TRUE(shows("Give a duration from 1 second"));
    presses(escape);
    EXPECT_TRUE(isLongerBy(-900));
}

TEST_F(SteeringAtTheScreen, givesABreakAnyLength)
{
    opens(stateIn(WorkflowState::breaking));
    presses("l7m\n");
    EXPECT_EQ(person.state().breakExtensionSeconds, 420);
}

TEST_F(SteeringAtTheScreen, goesOnAfterTheEnd)
{
    opens(stateIn(WorkflowState::sessionReview));
    presses(escape);
    presses("+");
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    EXPECT_FALSE(person.state().currentSession()->endedAt);
}

TEST_F(SteeringAtTheScreen, countsTheTimeSinceTheEndAsAPauseWhenAsked)
{
    opens(stateIn(WorkflowState::sessionReview));
    const double paused = person.state().currentSession()->accumulatedPausedSeconds;
    waits(60);
    const double sinceEnd = person.now - *person.state().currentSession()->endedAt;
    presses(escape);
    presses("l5m");
    presses(Key{Key::Kind::tab});
    presses(Key{Key::Kind::right});
    presses(save);
    EXPECT_NEAR(person.state().currentSession()->accumulatedPausedSeconds, paused + sinceEnd, 1);
}

TEST_F(SteeringAtTheScreen, endsASessionAtAnEarlierTime)
{
    opens(stateIn(WorkflowState::focusing));
    waits(600);
    presses("t14:00");
    presses(save);
    EXPECT_TRUE(shows("15:00:00 to 15:10:00."));
    presses(escape);
    presses("t");
    presses(withControl('u'));
    presses("15:05");
    presses(save);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 300);
}

TEST_F(SteeringAtTheScreen, makesATimeAwayAPause)
{
    opens(stateIn(WorkflowState::focusing));
    waits(600);
    presses("w15:02\n15:05");
    presses(save);
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 180);
    EXPECT_TRUE(shows("A pause from Sun 15 Nov 2026, 15:02 to Sun 15 Nov 2026, 15:05."));
}

TEST_F(SteeringAtTheScreen, finishesABlockInABreak)
{
    opens(stateIn(WorkflowState::breaking));
    presses("fy");
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockReview);
    EXPECT_EQ(person.state().currentBlock->cycleCount, 3);
}

TEST_F(SteeringAtTheScreen, finishesABlockWithAReview)
{
    opens(stateIn(WorkflowState::sessionReview));
    presses("y");
    for (int fields = 0; fields < 4; ++fields) {
        presses(Key{Key::Kind::tab});
    }
    presses(Key{Key::Kind::right});
    EXPECT_TRUE(shows("^S save, finish the block"));
    presses(save);
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockReview);
}

TEST_F(SteeringAtTheScreen, changesABlockThatHasBegun)
{
    opens(stateIn(WorkflowState::focusing));
    presses("c");
    presses(" and two");
    presses(Key{Key::Kind::backTab});
    presses(withControl('u'));
    presses("5");
    presses(save);
    const Block block = *person.state().currentBlock;
    EXPECT_EQ(block.outcomes[0].title, "Chapter one and two");
    EXPECT_EQ(block.outcomes[0].id, stateIn(WorkflowState::focusing).currentBlock->outcomes[0].id);
    EXPECT_EQ(block.cycleCount, 5);
    EXPECT_EQ(block.focusDurationSeconds,
              stateIn(WorkflowState::focusing).currentBlock->focusDurationSeconds);
}

TEST_F(SteeringAtTheScreen, correctsTheLastSession)
{
    opens(stateIn(WorkflowState::breaking));
    presses("k");
    presses(Key{Key::Kind::tab});
    presses("More: ");
    presses(save);
    const WorkSession session = person.state().currentBlock->sessions.back();
    WorkSession expected = stateIn(WorkflowState::breaking).currentBlock->sessions.back();
    EXPECT_TRUE(session.review->noteworthyResult.find("More: ") != std::string::npos);
    expected.review->noteworthyResult = session.review->noteworthyResult;
    EXPECT_EQ(session, expected);
}

TEST_F(SteeringAtTheScreen, resetsAStateThatNothingLeadsOnFrom)
{
    opens(stateIn(WorkflowState::complete));
    EXPECT_TRUE(shows("x reset the work"));
    presses("xy");
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
}

TEST_F(SteeringAtTheScreen, losesAFormThatDoesNotFitAnyMore)
{
    opens(stateIn(WorkflowState::focusing));
    presses("l10m");
    ASSERT_EQ(person.types({"end"}).code, ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(shows("closed, because it does not fit any more."));
    presses(escape);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST_F(SteeringAtTheScreen, offersAPauseOrAnEarlierEndAfterASleepOfTheComputer)
{
    opens(stateIn(WorkflowState::focusing));
    waits(900);
    ui->noteSleep({.from = moment + 300, .to = moment + 900});
    EXPECT_TRUE(shows("The computer slept from 15:05 to 15:15. w makes it a pause."));
    presses("w");
    EXPECT_TRUE(shows("15:05:00"));
    EXPECT_TRUE(shows("15:15:00"));
    presses(save);
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 600);

    opens(stateIn(WorkflowState::focusing));
    ui->noteSleep({.from = moment + 300, .to = moment + 900});
    presses("t");
    presses(save);
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 300);
}

TEST_F(SteeringAtTheScreen, saysNothingOfASleepOutsideAFocusSession)
{
    opens(stateIn(WorkflowState::breaking));
    ui->noteSleep({.from = moment, .to = moment + 200});
    EXPECT_FALSE(shows("The computer slept"));
}

}  // namespace
}  // namespace quillmere::test
