// Which version undo and redo lead to, and what they say and leave.
#include "work/undo/undo_step.hpp"

#include "amendments/change_length.hpp"
#include "amendments/was_away.hpp"

#include <filesystem>

#include "program_testing.hpp"
#include "workspace/versions.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using work::UndoDirection;
using work::UndoStep;
using workspace::Workspace;

/// A person whose program undoes and redoes.
class Undoer : public Person {
public:
    explicit Undoer(const QuillmereState& state) { has(state); }

    Workspace workspace() const
    {
        return Workspace::in(
            directory(), [this] { return now; }, stateHome());
    }

    std::optional<UndoStep> next(UndoDirection direction) const
    {
        const workspace::Situation present = workspace().look();
        return work::nextStep(direction, workspace(), present.state, present.now);
    }

    /// Changes the state after some seconds.
    void does(double secondsLater, const workspace::Operation& operation,
              workspace::Keeping keeping = workspace::Keeping::ifPossible)
    {
        now = now + secondsLater;
        workspace().change([](const std::vector<workspace::Event>&) {}, operation, {.keeping = keeping});
    }

    void takes(const UndoStep& step) const
    {
        const Workspace files = workspace();
        const work::UndoChange change = work::changeBy(step, files);
        warning = files.change([](const std::vector<workspace::Event>&) {}, change.operation, change.manner)
                      .warning;
    }

    /// Takes the next step after some seconds; returns its words, or an empty text when there is none.
    std::string goes(UndoDirection direction, double secondsLater = 0)
    {
        now = now + secondsLater;
        const std::optional<UndoStep> step = next(direction);
        if (step) {
            takes(*step);
        }
        return step ? step->changes : "";
    }

    std::string undoes(double secondsLater = 0) { return goes(UndoDirection::undo, secondsLater); }
    std::string redoes(double secondsLater = 0) { return goes(UndoDirection::redo, secondsLater); }

    mutable std::string warning;  ///< of the last step

private:
    const TimeZone zone_{"UTC"};
};

void pause(QuillmereState& state, Instant now) { WorkflowEngine().pauseFocus(state, now); }
void resume(QuillmereState& state, Instant now) { WorkflowEngine().resumeFocus(state, now); }
void end(QuillmereState& state, Instant now) { WorkflowEngine().endFocus(state, now); }
void review(QuillmereState& state, Instant now)
{
    WorkflowEngine().saveReviewAndStartBreak(state, sampleReview(1), samplePlan(2), now);
}
void askAway(QuillmereState& state, Instant now) { WorkflowEngine().addQuestion(state, "May I?", now); }
void answer(QuillmereState& state, Instant now)
{
    WorkflowEngine().answerQuestion(state, state.openQuestions().front().id, "Yes.", now);
}

void lengthen(QuillmereState& state, Instant now) { amendments::changeLength(state, 600, now); }
void beAway(QuillmereState& state, Instant now) { amendments::wasAway(state, now - 30, {}, now); }

/// Pauses, resumes and ends a session of 25 minutes that began at 15:00.
void workUntilReview(Undoer& person)
{
    person.does(60, pause);
    person.does(60, resume);
    person.does(60, end);
}

TEST(Undo, leadsBackAgainAndAgain)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    EXPECT_EQ(person.undoes(60), "focus session 1 ended early at 15:03 (15:03)");
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    EXPECT_EQ(person.undoes(60), "focus session 1 resumed (15:02)");
    EXPECT_EQ(person.state().currentSession()->pausedAt, moment + 60);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused (15:01)");
    EXPECT_FALSE(person.state().currentSession()->pausedAt);
    EXPECT_TRUE(filesAgree(person));
    EXPECT_EQ(person.undoes(60), "");
}

TEST(Redo, leadsForwardInTheOppositeOrder)
{
    Undoer person(stateIn(WorkflowState::focusing));
    EXPECT_EQ(person.redoes(), "");
    workUntilReview(person);
    const QuillmereState last = person.state();
    for (int step = 0; step < 3; ++step) {
        person.undoes(60);
    }
    EXPECT_EQ(person.redoes(60), "focus session 1 paused (undone 15:06)");
    EXPECT_EQ(person.state().currentSession()->pausedAt, moment + 60);
    EXPECT_EQ(person.redoes(60), "focus session 1 resumed (undone 15:05)");
    EXPECT_EQ(person.redoes(60), "focus session 1 ended early at 15:03 (undone 15:04)");
    EXPECT_EQ(person.state().currentBlock, last.currentBlock);
    EXPECT_EQ(person.redoes(60), "");
}

TEST(Redo, isUndoneAgain)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    person.undoes(60);
    person.undoes(60);
    person.redoes(60);
    person.redoes(60);
    EXPECT_EQ(person.undoes(60), "focus session 1 ended early at 15:03 (15:07)");
    EXPECT_EQ(person.undoes(60), "focus session 1 resumed (15:06)");
    EXPECT_EQ(person.undoes(60), "focus session 1 paused (15:01)");
    EXPECT_EQ(person.undoes(60), "");
}

TEST(Redo, endsWithTheNextOtherChange)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    person.undoes(60);
    person.does(60, pause);
    EXPECT_EQ(person.redoes(), "");
}

TEST(Undo, passesWhatWasUndoneBeforeAnotherChange)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    person.undoes(60);
    person.does(60, pause);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused (15:05)");
    EXPECT_EQ(person.undoes(60), "focus session 1 resumed (15:02)");
    EXPECT_EQ(person.redoes(60), "focus session 1 resumed (undone 15:07)");
    EXPECT_EQ(person.redoes(60), "focus session 1 paused (undone 15:06)");
    EXPECT_EQ(person.redoes(60), "");
}

TEST(Undo, countsTheTimeSinceTheChangeAsAPause)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(600, end);
    person.undoes(5'000);
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 5'000);
    EXPECT_EQ(TimerSnapshot::derive(person.state(), person.now)->remainingSeconds, 900);
}

TEST(Undo, countsTheWholeTimeSinceAChangeBeforeThoseUndone)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, end);
    person.undoes(60);
    person.undoes(60);
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 180);
}

TEST(Undo, takesBackWhatTheClockDidSinceAndSaysSo)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, resume);
    person.does(5'000, nullptr);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(person.undoes(60), "focus session 1 resumed; focus session 1 ended at 15:26 (15:02)");
    EXPECT_EQ(person.state().currentSession()->pausedAt, moment + 60);
}

TEST(Undo, takesBackWhatTheClockDidBeforeItIsRecorded)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, resume);
    EXPECT_EQ(person.undoes(5'000), "focus session 1 resumed; focus session 1 ended at 15:26 (15:02)");
    EXPECT_EQ(person.state().currentSession()->pausedAt, moment + 60);
}

TEST(Undo, hasNothingToDoWithTheClockAlone)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(5'000, nullptr);
    EXPECT_EQ(person.workspace().versions().list().size(), 1U);
    EXPECT_EQ(person.undoes(), "");
}

TEST(Undo, lettingTheClockRunOnKeepsThePlace)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, resume);
    person.does(60, end);
    person.undoes(60);
    person.does(5'000, nullptr);
    EXPECT_EQ(person.redoes(60),
              "focus session 1 ended early at 15:03; end of session 1 moved to 15:03 (undone 15:04)");
    EXPECT_EQ(person.undoes(60), "end of session 1 moved to 15:03 (16:28)");
}

TEST(Undo, doesNotTakeTheClockAloneBackAfterAnEarlierStep)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, end);
    person.undoes(60);
    person.does(5'000, nullptr);
    EXPECT_EQ(person.undoes(60), "");
}

TEST(Undo, recordsWhatTheClockDoesAfterIt)
{
    QuillmereState scheduled = stateWithScheduledBlock();
    Undoer person(scheduled);
    person.does(
        60, [](QuillmereState& state, Instant now) { WorkflowEngine().cancelScheduledBlock(state, now); });
    person.now = moment + 4'000;
    const std::optional<UndoStep> step = person.next(UndoDirection::undo);
    ASSERT_TRUE(step);
    ASSERT_EQ(step->events.size(), 1U);
    EXPECT_EQ(step->events.front().kind, workspace::Event::Kind::blockStarted);
    person.takes(*step);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(Undo, leavesQuestionsAndAnswersOfThePresent)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, askAway);
    person.does(60, pause);
    person.does(60, askAway, workspace::Keeping::no);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused (15:03)");
    EXPECT_EQ(person.state().openQuestions().size(), 2U);
    EXPECT_FALSE(person.state().currentSession()->pausedAt);
}

TEST(Undo, takesAnAnswerBackWithoutTheWorkSince)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, askAway);
    person.does(60, answer);
    person.does(5'000, nullptr);
    const std::optional<Block> block = person.state().currentBlock;
    EXPECT_EQ(person.undoes(60), "question answered: May I? (15:02)");
    EXPECT_EQ(person.state().openQuestions().size(), 1U);
    EXPECT_EQ(person.state().currentBlock, block);
    EXPECT_EQ(person.undoes(60), "question was asked at 15:01: May I? (15:01)");
    EXPECT_TRUE(person.state().agentQuestions.empty());
    person.redoes(60);
    EXPECT_EQ(person.redoes(60), "question answered: May I? (undone 16:26)");
    EXPECT_EQ(person.state().agentQuestions.front().answer, "Yes.");
    EXPECT_EQ(person.state().currentBlock, block);
}

TEST(Undo, namesWhatAnotherProgramWroteSince)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, end);
    QuillmereState state = person.state();
    review(state, person.now + 60);
    person.has(state);
    EXPECT_EQ(person.undoes(120), "focus session 1 ended early at 15:01; review of session 1 saved (15:02)");
}

TEST(Undo, passesVersionsThatCannotBeRead)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    writeText(person.workspace().versions().list().at(0).file, "spoilt");
    fs::remove(person.workspace().versions().list().at(1).file);
    EXPECT_EQ(person.undoes(),
              "focus session 1 ended early at 15:03; focus session 1 paused for 1 min (15:03)");
}

TEST(Undo, passesAVersionBeyondTheLimits)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, resume);
    QuillmereState beyond = person.state();
    beyond.currentBlock->cycleCount = 5'000;
    writeText(person.workspace().versions().list().front().file,
              std::string(StateStore::encoder().encode(beyond).view()));
    EXPECT_EQ(person.undoes(), "focus session 1 paused for 1 min (15:02)");
}

TEST(Undo, passesAChangeThatIsGoneAlready)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, askAway);
    person.does(60, resume);
    QuillmereState withoutQuestion = person.state();
    withoutQuestion.agentQuestions.clear();
    person.has(withoutQuestion);
    EXPECT_NE(person.undoes(60), "");
    EXPECT_EQ(person.undoes(60), "focus session 1 paused (15:01)");
}

TEST(Undo, namesAPauseThatWasMadeAfterAnEarlierStep)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, end);
    person.undoes(60);
    person.does(60, beAway);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused for 30 s (15:03)");
}

TEST(Undo, doesNotNameThePauseThatTheStepBeforeAdded)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, lengthen);
    person.does(60, end);
    person.undoes(60);
    EXPECT_EQ(person.undoes(60), "focus session 1 lengthened by 10 min (15:01)");
}

TEST(Undo, namesAPauseInAnotherSessionThanThatOfTheStepBefore)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.does(60, end);
    person.undoes(60);
    QuillmereState state = person.state();
    WorkSession second = state.currentBlock->sessions.back();
    second.id = Identifier::random();
    second.number = 2;
    second.pausedAt.reset();
    second.accumulatedPausedSeconds = 30;
    state.currentBlock->sessions.push_back(second);
    person.has(state);
    EXPECT_EQ(person.undoes(60),
              "focus session 1 paused; focus session 2 started; focus session 2 paused for 30 s (15:01)");
}

TEST(Undo, addsNoPauseWhenItTakesAnAnswerBack)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, askAway);
    person.does(60, answer);
    person.undoes(60);
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 0);
}

TEST(Undo, namesAPauseOfAnotherProgramAfterAnEarlierStep)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, end);
    person.undoes(60);
    person.does(60, pause);
    QuillmereState state = person.state();
    state.currentBlock->sessions.back().accumulatedPausedSeconds += 30;
    person.has(state);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused; focus session 1 paused for 30 s (15:03)");
}

TEST(Redo, namesAPauseThatIsTheChangeItself)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, beAway);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused for 30 s (15:01)");
    EXPECT_EQ(person.redoes(60), "focus session 1 paused for 30 s (undone 15:02)");
}

TEST(Undo, beginsAtTheNewestVersionWithoutItsPlace)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    person.undoes(60);
    writeText(person.workspace().stateDirectory() / "undo.json", "spoilt");
    EXPECT_EQ(person.redoes(), "");
    EXPECT_EQ(person.undoes(), "focus session 1 continued; focus session 1 paused for 1 min (15:04)");
}

TEST(Undo, warnsWhenItsPlaceCannotBeNoted)
{
    Undoer person(stateIn(WorkflowState::focusing));
    workUntilReview(person);
    fs::create_directories(person.workspace().stateDirectory() / "undo.json" / "full");
    EXPECT_NE(person.undoes(), "");
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
    EXPECT_TRUE(person.warning.starts_with("The change is saved, but a note about it could not be written: "))
        << person.warning;
}

TEST(Undo, ignoresAPlaceAmongVersionsThatWereDeleted)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    person.undoes(60);
    fs::remove_all(person.workspace().stateDirectory() / "versions");
    // Its version has the number of an undone version.
    person.does(60, pause);
    EXPECT_EQ(person.undoes(60), "focus session 1 paused (15:03)");
}

/// Whether the person's program refuses the step, and changes nothing.
testing::AssertionResult isRefused(const Undoer& person, const UndoStep& step)
{
    const auto before = pictureOf(person.directory());
    try {
        person.takes(step);
    } catch (const base::Refusal& refusal) {
        return refusal.kind() == base::Refusal::Kind::busy && pictureOf(person.directory()) == before
                   ? testing::AssertionSuccess()
                   : testing::AssertionFailure() << refusal.what();
    }
    return testing::AssertionFailure() << "took a step that nobody agreed to";
}

TEST(Undo, refusesWhenTheChangeIsNoLongerTheLastOne)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, askAway);
    const std::optional<UndoStep> agreed = person.next(UndoDirection::undo);
    ASSERT_TRUE(agreed);
    person.does(1, askAway);
    ASSERT_EQ(person.next(UndoDirection::undo)->changes, agreed->changes);
    EXPECT_TRUE(isRefused(person, *agreed));
}

TEST(Undo, refusesWhenItWouldTakeBackMoreThanWasAgreed)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    const std::optional<UndoStep> agreed = person.next(UndoDirection::undo);
    ASSERT_TRUE(agreed);
    QuillmereState state = person.state();
    end(state, person.now);
    person.has(state);
    EXPECT_TRUE(isRefused(person, *agreed));
}

TEST(Undo, refusesWhenItsVersionIsGone)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    const std::optional<UndoStep> agreed = person.next(UndoDirection::undo);
    ASSERT_TRUE(agreed);
    fs::remove_all(person.workspace().stateDirectory() / "versions");
    EXPECT_TRUE(isRefused(person, *agreed));
}

TEST(Undo, neverSetsUpdatedAtBack)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(600, pause);
    person.undoes(-300);
    EXPECT_EQ(person.state().updatedAt, moment + 600);
}

TEST(Undo, changesNothingWhenThePresentCannotBeKept)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    const std::optional<UndoStep> step = person.next(UndoDirection::undo);
    ASSERT_TRUE(step);
    const fs::path newest = person.workspace().versions().list().front().file;
    // The name of the next version is taken.
    fs::create_directories(newest.parent_path() / "000002_2026-11-15T15:01:00Z.json" / "full");
    const std::string before = textOf(person.store().stateURL());
    EXPECT_THROW(person.takes(*step), base::Refusal);
    EXPECT_EQ(textOf(person.store().stateURL()), before);
}

TEST(UndoStep, saysWhatItOffersAndWhatItHasDone)
{
    Undoer person(stateIn(WorkflowState::focusing));
    person.does(60, pause);
    const std::optional<UndoStep> undo = person.next(UndoDirection::undo);
    ASSERT_TRUE(undo);
    EXPECT_EQ(offerText(*undo), "Undo: focus session 1 paused (15:01)");
    EXPECT_EQ(doneText(*undo), "Undone: focus session 1 paused (15:01)");
    person.takes(*undo);
    const std::optional<UndoStep> redo = person.next(UndoDirection::redo);
    ASSERT_TRUE(redo);
    EXPECT_EQ(offerText(*redo), "Redo: focus session 1 paused (undone 15:01)");
    EXPECT_EQ(doneText(*redo), "Done again: focus session 1 paused (undone 15:01)");
}

}  // namespace
}  // namespace quillmere::test
