// The live screen without its terminal: keys in, pictures out.
#include "screen/screen_of_a_person.hpp"

#include <sys/resource.h>

#include <sstream>

namespace quillmere::test {
namespace {

using namespace screen;

/// How often this process has gone to sleep.
long sleepCount()
{
    rusage usage{};
    EXPECT_EQ(::getrusage(RUSAGE_SELF, &usage), 0);
    return usage.ru_nvcsw;
}

TEST_F(ScreenOfAPerson, showsTimesAsConfigured)
{
    configuration.values.hours = base::Hours::twelve;
    opens(stateWithScheduledBlock());
    EXPECT_TRUE(shows("4:00 pm to "));
    EXPECT_FALSE(shows("16:00"));
}

TEST_F(ScreenOfAPerson, showsANewBlockAsConfigured)
{
    configuration.values.focusSeconds = 3000;
    opens(stateIn(WorkflowState::blockPlanning));
    ui->resize({.rows = 60, .columns = 80});
    EXPECT_TRUE(shows("50m"));
}

TEST_F(ScreenOfAPerson, goesThroughABlockWithKeysAlone)
{
    opens();
    presses("pChapter");
    presses(save);
    ASSERT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    presses("Headings");
    presses(save);
    ASSERT_EQ(person.state().workflowState, WorkflowState::focusing);
    presses(" ");
    EXPECT_TRUE(shows("paused"));
    presses(" ey");
    ASSERT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    presses("y");
    presses(save);
    ASSERT_EQ(person.state().workflowState, WorkflowState::breaking);
    presses("+e");
    ASSERT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(person.state().currentBlock->sessions.size(), 1U);
    EXPECT_TRUE(filesAgree(person));
}

TEST_F(ScreenOfAPerson, finishesABlock)
{
    opens(stateIn(WorkflowState::blockReview));
    presses("Two chapters");
    presses(save);
    EXPECT_EQ(person.state().blockHistory.front().reflection->outputProduced, "Two chapters");
    EXPECT_TRUE(shows("Finished last"));
}

TEST_F(ScreenOfAPerson, handlesAScheduledBlock)
{
    opens(stateWithScheduledBlock());
    EXPECT_TRUE(shows("16:00 to 17:30"));
    presses("cn");
    EXPECT_TRUE(person.state().currentBlock);
    presses("e");
    EXPECT_TRUE(shows("Chapter one"));
    presses(save);
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    presses("s");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_FALSE(person.state().currentBlock->plannedStart);
}

TEST_F(ScreenOfAPerson, asksBeforeAScheduledBlockIsDiscarded)
{
    opens(stateWithScheduledBlock());
    presses("c");
    EXPECT_TRUE(shows("Discard the scheduled block?"));
    EXPECT_TRUE(person.state().currentBlock);
    presses("y");
    EXPECT_FALSE(person.state().currentBlock);
}

TEST_F(ScreenOfAPerson, isToldThatAKeyDoesNothingHere)
{
    opens(stateIn(WorkflowState::focusing));
    presses("s");
    EXPECT_TRUE(shows("Nothing is on this key now; ? shows the keys."));
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    presses("?");
    EXPECT_FALSE(shows("Nothing is on this key"));
    EXPECT_TRUE(shows("you were away"));
}

TEST_F(ScreenOfAPerson, isLedToTheFieldWhoseValueCannotBeUsed)
{
    opens(stateIn(WorkflowState::sessionReview));
    presses(Key{Key::Kind::tab});
    presses("Something");
    presses(save);
    EXPECT_TRUE(shows("Say whether it was completed"));
    EXPECT_TRUE(shows("▸ Was it completed?"));
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
}

TEST_F(ScreenOfAPerson, seesWhatAnotherProgramDoes)
{
    opens(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person.typesLater(60, {"pause"}).code, ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(shows("paused"));
    EXPECT_TRUE(shows("Changed elsewhere: focus session 1 paused."));
    EXPECT_FALSE(ui->takeBell());
}

TEST_F(ScreenOfAPerson, hearsWhenAFocusSessionEnds)
{
    opens(stateIn(WorkflowState::focusing));
    EXPECT_TRUE(ui->countsSeconds());
    waits(1'500);
    EXPECT_TRUE(shows("The focus session ended at 15:25."));
    EXPECT_TRUE(shows("Review this session, over since 15:25"));
    EXPECT_TRUE(shows("Was it completed?"));
    EXPECT_TRUE(ui->takeBell());
    EXPECT_FALSE(ui->takeBell());
    waits(60);
    EXPECT_FALSE(ui->takeBell());
}

TEST_F(ScreenOfAPerson, hearsOfTheEndAlsoWhenAnotherProgramRecordedIt)
{
    opens(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person.typesLater(1'500, {"tick"}).code, ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(ui->takeBell());
    EXPECT_TRUE(shows("The focus session ended at 15:25."));
}

TEST_F(ScreenOfAPerson, hearsAQuestionThatMayInterrupt)
{
    opens(stateIn(WorkflowState::idle));
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(ui->takeBell());
    waits(60);
    EXPECT_FALSE(ui->takeBell());
}

TEST_F(ScreenOfAPerson, hearsNoQuestionInFocus)
{
    opens(stateIn(WorkflowState::focusing));
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    ui->refresh();
    EXPECT_FALSE(ui->takeBell());
}

TEST_F(ScreenOfAPerson, hearsNothingWithoutSound)
{
    configuration.values.sound = false;
    opens(stateIn(WorkflowState::focusing));
    waits(1'500);
    EXPECT_TRUE(shows("The focus session ended at 15:25."));
    EXPECT_FALSE(ui->takeBell());
}

TEST_F(ScreenOfAPerson, hasTheTimeInItsTitle)
{
    opens(stateIn(WorkflowState::focusing));
    EXPECT_EQ(ui->title(), "25:00 Focus");
    waits(61);
    EXPECT_EQ(ui->title(), "23:59 Focus");
    presses(" ");
    EXPECT_EQ(ui->title(), "23:59 Focus, paused");
    opens(stateIn(WorkflowState::breaking));
    waits(300);
    EXPECT_EQ(ui->title(), "Break over");
    opens(stateIn(WorkflowState::idle));
    EXPECT_EQ(ui->title(), "Quillmere");
}

TEST_F(ScreenOfAPerson, seesABreakGoOnInOvertime)
{
    opens(stateIn(WorkflowState::breaking));
    waits(301);
    EXPECT_TRUE(ui->takeBell());
    EXPECT_TRUE(shows("The break was over at 15:05."));
    EXPECT_TRUE(shows("end the break"));
    EXPECT_TRUE(ui->countsSeconds());
    EXPECT_EQ(person.state().breakEndNotifiedAt, moment + 300);
}

TEST_F(ScreenOfAPerson, seesAScheduledBlockBegin)
{
    opens(stateWithScheduledBlock());
    EXPECT_TRUE(ui->countsSeconds());
    waits(3'600);
    EXPECT_TRUE(ui->takeBell());
    EXPECT_TRUE(shows("What should this session bring"));
    EXPECT_FALSE(ui->countsSeconds());
}

TEST_F(ScreenOfAPerson, isNotRefreshedEverySecondWhereNoSecondsAreShown)
{
    opens(stateIn(WorkflowState::idle));
    EXPECT_FALSE(ui->countsSeconds());
    QuillmereState paused = stateIn(WorkflowState::focusing);
    paused.currentBlock->sessions.back().pausedAt = moment;
    opens(paused);
    EXPECT_FALSE(ui->countsSeconds());
}

TEST_F(ScreenOfAPerson, answersAQuestionFromAnyScreen)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        QuillmereState state = stateIn(workflowState);
        state.agentQuestions = {{.id = identifier(50),
                                 .question = "Which build?",
                                 .createdAt = moment,
                                 .answer = std::nullopt,
                                 .answeredAt = std::nullopt}};
        opens(state);
        EXPECT_TRUE(shows("1 question"));
        if (shows("^O")) {
            presses(withControl('o'));
        } else {
            presses("a");
        }
        EXPECT_TRUE(shows("Which build?"));
        presses("\nThe nightly\none");
        presses(save);
        presses(escape);
        EXPECT_EQ(person.state().agentQuestions[0].answer, "The nightly\none");
        EXPECT_EQ(person.state().workflowState, workflowState);
    }
}

/// A question of about two thousand characters, in numbered words.
std::string longQuestion()
{
    std::string text = "word-1";
    for (int number = 2; number <= 200; ++number) {
        text += (number % 40 == 0 ? "\n" : " ") + std::string("word-") + std::to_string(number);
    }
    return text + " end";
}

TEST_F(ScreenOfAPerson, readsALongQuestionToItsEnd)
{
    for (const Size window : {usualWindow, smallWindow}) {
        QuillmereState state = stateIn(WorkflowState::focusing);
        state.agentQuestions = {{.id = identifier(50),
                                 .question = longQuestion(),
                                 .createdAt = moment,
                                 .answer = std::nullopt,
                                 .answeredAt = std::nullopt}};
        opens(state);
        ui->resize(window);
        presses("a");
        EXPECT_TRUE(shows("PgDn scroll"));
        EXPECT_TRUE(shows("word-1 "));
        EXPECT_TRUE(shows("↓\n"));
        std::string seen = ui->picture(Charset::unicode).text();
        const auto reads = [&](const Key& key) {
            for (int times = 0; times < 30; ++times) {
                presses(key);
                seen += ui->picture(Charset::unicode).text();
            }
        };
        const auto hasSeenAll = [&] {
            for (int number = 1; number <= 200; ++number) {
                EXPECT_NE(seen.find("word-" + std::to_string(number)), std::string::npos) << number;
            }
        };
        reads(pageDown);
        hasSeenAll();
        EXPECT_TRUE(shows("asked"));
        EXPECT_TRUE(shows("↑"));
        EXPECT_FALSE(shows("↓\n"));
        presses(pageUp);
        EXPECT_FALSE(shows("asked "));
        presses(enter);
        EXPECT_TRUE(shows("PgDn scroll"));
        seen.clear();
        reads(pageUp);
        EXPECT_TRUE(shows("word-1 "));
        reads(pageDown);
        hasSeenAll();
        presses("x");
        EXPECT_TRUE(shows("x"));
        EXPECT_EQ(person.state(), state);
    }
}

TEST_F(ScreenOfAPerson, asksAQuestion)
{
    opens();
    presses("anWhy?");
    presses(save);
    EXPECT_EQ(person.state().agentQuestions.at(0).question, "Why?");
    EXPECT_TRUE(shows("Why?"));
}

TEST_F(ScreenOfAPerson, losesTheAnswerFormWhenSomebodyElseAnswers)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    opens(state);
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    ui->refresh();
    presses("a\nHalf");
    ASSERT_EQ(person.types({"answer", "1", "The other"}).code, ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(shows("Another program has answered this question."));
    EXPECT_TRUE(shows("No question waits"));
}

TEST_F(ScreenOfAPerson, readsWhatHelpsWhileAFormIsFilledIn)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses("Half a plan");
    EXPECT_TRUE(shows("^R what helps"));
    presses(withControl('r'));
    EXPECT_TRUE(shows("The deadline is near"));
    EXPECT_TRUE(shows("Rewriting the outline"));
    EXPECT_FALSE(shows("Half a plan"));
    presses(escape);
    presses("!");
    EXPECT_TRUE(shows("Half a plan!"));
}

TEST_F(ScreenOfAPerson, isOfferedNothingThatHelpsWhereThereIsNothing)
{
    opens(stateIn(WorkflowState::blockPlanning));
    EXPECT_FALSE(shows("^R"));
    presses(withControl('r'));
    EXPECT_TRUE(shows("What should come out of it?"));
}

TEST_F(ScreenOfAPerson, seesTheKeysOfTheHistoryAndTheLookBack)
{
    opens(stateIn(WorkflowState::focusing));
    EXPECT_TRUE(shows("h history"));
    EXPECT_TRUE(shows("r look back"));
    presses("?");
    EXPECT_TRUE(shows("h       the blocks, and what you wrote in them"));
    EXPECT_TRUE(shows("r       look back: focus time, completion, streaks"));
    presses("r");
    EXPECT_TRUE(shows("No focus session has ended yet."));
}

TEST_F(ScreenOfAPerson, readsAllKeysInASmallWindow)
{
    opens(stateIn(WorkflowState::focusing));
    ui->resize(smallWindow);
    presses("?");
    EXPECT_TRUE(shows("PgDn scroll"));
    EXPECT_FALSE(shows("q       quit"));
    presses(Key{Key::Kind::end});
    EXPECT_TRUE(shows("q       quit"));
}

TEST_F(ScreenOfAPerson, givesNoCommandsByPasting)
{
    opens(stateIn(WorkflowState::focusing));
    presses(pasted("Hey, see you there"));
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    presses("e");
    presses(pasted("yes"));
    EXPECT_TRUE(shows("End the session before its time?"));
    EXPECT_FALSE(ui->isOver());
    opens(stateIn(WorkflowState::sessionPlanning));
    presses(pasted("Hey, see\nyou there"));
    EXPECT_TRUE(shows("Hey, see you there"));
}

TEST_F(ScreenOfAPerson, findsADraftAgain)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses("Half a pl");
    opens();
    EXPECT_TRUE(shows("Half a pl"));
    EXPECT_TRUE(shows("What you had written is back."));
    presses("an");
    presses(save);
    EXPECT_EQ(person.state().currentSession()->plan.intendedOutcome, "Half a plan");
    EXPECT_EQ(namesIn(person.stateHome()), Words{});
}

TEST_F(ScreenOfAPerson, keepsTheDraftWhenTheWorkMovesOnElsewhere)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses("Half a plan");
    ASSERT_EQ(person.types({"focus", "--outcome", "Another", "--energy", "4", "--morale", "3"}).code,
              ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(shows("Changed elsewhere: focus session 1 started. What you wrote is kept."));
    EXPECT_TRUE(shows("Session 1 of 3"));
    // Another program may bring the former state back.
    person.has(stateIn(WorkflowState::sessionPlanning));
    ui->refresh();
    EXPECT_TRUE(shows("Half a plan"));
}

TEST_F(ScreenOfAPerson, findsOnlyTheFieldsTheyChangedInADraft)
{
    opens(stateWithScheduledBlock());
    presses("e");
    presses(Key{Key::Kind::tab});
    presses("Mine. ");
    QuillmereState state = person.state();
    state.currentBlock->hazards = "Theirs";
    opens(state);
    EXPECT_TRUE(shows("nearMine."));
    EXPECT_TRUE(shows("Theirs"));
    EXPECT_TRUE(shows("What you had written is back."));
    presses(save);
    EXPECT_EQ(person.state().currentBlock->hazards, "Theirs");
}

TEST_F(ScreenOfAPerson, findsTheDraftOfANewBlockWithoutBeingToldOfOtherChanges)
{
    opens();
    presses("pChapter\nNotes");
    opens();
    EXPECT_TRUE(shows("What you had written is back."));
    EXPECT_TRUE(shows("Notes"));
    presses(save);
    ASSERT_EQ(person.state().currentBlock->outcomes.size(), 2U);
}

TEST_F(ScreenOfAPerson, isToldThatADraftReplacesAChangeMadeElsewhere)
{
    opens(stateWithScheduledBlock());
    presses("e");
    presses(Key{Key::Kind::tab});
    presses("Mine. ");
    QuillmereState state = person.state();
    state.currentBlock->whyValue = "Theirs";
    opens(state);
    EXPECT_TRUE(shows("nearMine."));
    EXPECT_FALSE(shows("Theirs"));
    EXPECT_TRUE(shows("It replaces what another"));
}

TEST_F(ScreenOfAPerson, givesNoCommandsByTypingOnAfterAFormWasClosed)
{
    opens(stateIn(WorkflowState::sessionReview));
    presses(Key{Key::Kind::tab});
    presses("The chapter ");
    ASSERT_EQ(person
                  .types({"review", "--completion", "Yes", "--next-outcome", "Next", "--next-energy", "4",
                          "--next-morale", "3"})
                  .code,
              ExitCode::done);
    ui->refresh();
    const QuillmereState state = person.state();
    EXPECT_TRUE(shows("What you wrote is kept."));
    EXPECT_TRUE(shows("Esc go on"));
    presses("is finished\nes");
    EXPECT_EQ(person.state(), state);
    EXPECT_TRUE(shows("What you wrote is kept."));
    presses(escape);
    EXPECT_FALSE(shows("go on"));
    presses("e");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST_F(ScreenOfAPerson, typesIntoNoOtherFormAfterAFormWasClosed)
{
    opens(stateIn(WorkflowState::blockPlanning));
    presses("The chapter ");
    ASSERT_EQ(person.types({"plan", "--outcome", "Theirs", "--start"}).code, ExitCode::done);
    ui->refresh();
    presses("goes on");
    EXPECT_FALSE(shows("goes on\n"));
    presses(escape);
    presses("Headings");
    EXPECT_TRUE(shows("   Headings"));
}

TEST_F(ScreenOfAPerson, needsNoEscapeAfterAFormWithoutChangesWasClosed)
{
    opens(stateIn(WorkflowState::sessionReview));
    ASSERT_EQ(person
                  .types({"review", "--completion", "Yes", "--next-outcome", "Next", "--next-energy", "4",
                          "--next-morale", "3"})
                  .code,
              ExitCode::done);
    ui->refresh();
    presses("e");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST_F(ScreenOfAPerson, savesAFormOnceWhenOnlyASummaryFails)
{
    opens(stateIn(WorkflowState::focusing));
    std::filesystem::remove(person.directory() / "widget-snapshot.json");
    std::filesystem::create_directories(person.directory() / "widget-snapshot.json" / "in the way");
    presses("anAsk me once");
    presses(save);
    EXPECT_TRUE(shows("The change itself is saved"));
    EXPECT_TRUE(shows("Ask me once"));
    EXPECT_FALSE(shows("^S"));
    EXPECT_EQ(namesIn(person.stateHome()), Words{});
    presses(save);
    EXPECT_EQ(person.state().agentQuestions.size(), 1U);
}

TEST_F(ScreenOfAPerson, seesTheTimeGoOnWhileAnotherProgramIsAtWork)
{
    opens(stateIn(WorkflowState::focusing));
    {
        const workspace::DirectoryLock others(person.directory());
        waits(60);
        EXPECT_TRUE(shows("Session 1 of 3"));
        waits(1'440);
        EXPECT_TRUE(shows("The focus session ended at 15:25."));
        EXPECT_TRUE(shows("Was it completed?"));
        EXPECT_TRUE(ui->takeBell());
        EXPECT_TRUE(ui->countsSeconds());
        EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
        presses("y");
        presses(save);
        EXPECT_TRUE(shows("Another program is at work"));
        EXPECT_TRUE(shows("^S"));
        EXPECT_FALSE(shows("cannot be used"));
    }
    waits(1);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    EXPECT_EQ(person.state().currentSession()->endedAt, moment + 1'500);
    EXPECT_FALSE(ui->takeBell());
    EXPECT_FALSE(ui->countsSeconds());
    presses(save);
    EXPECT_EQ(person.state().workflowState, WorkflowState::breaking);
}

TEST_F(ScreenOfAPerson, doesNotWaitForAnotherProgramToLook)
{
    opens(stateIn(WorkflowState::focusing));
    const workspace::DirectoryLock others(person.directory());
    waits(1'500);
    const long before = sleepCount();
    ui->refresh();
    // A wait for the lock sleeps every ten milliseconds, for five seconds.
    EXPECT_LT(sleepCount() - before, 100);
}

TEST_F(ScreenOfAPerson, isNotToldAgainOfABreakThatIsStillOverAfterItsExtension)
{
    opens(stateIn(WorkflowState::breaking));
    waits(1'200);
    EXPECT_TRUE(shows("The break was over at 15:05."));
    ASSERT_TRUE(ui->takeBell());
    presses("+");
    EXPECT_TRUE(shows("The break is longer now, and still over."));
    waits(1);
    EXPECT_FALSE(ui->takeBell());
    EXPECT_TRUE(shows("The break is longer now, and still over."));
    presses("++++");
    EXPECT_TRUE(shows("The break is longer now."));
    EXPECT_FALSE(shows("still over"));
    waits(1'000);
    EXPECT_TRUE(ui->takeBell());
}

TEST_F(ScreenOfAPerson, seesTheDateOfAnEarlierDayAfterMidnight)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.agentQuestions = {{.id = identifier(50),
                             .question = "Which build?",
                             .createdAt = moment,
                             .answer = std::nullopt,
                             .answeredAt = std::nullopt}};
    opens(state);
    presses("a");
    EXPECT_TRUE(shows("asked 15:00"));
    waits(86'400);
    EXPECT_FALSE(shows("asked 15:00"));
}

TEST_F(ScreenOfAPerson, isToldOnceThatNoDraftsAreKept)
{
    person.has(stateIn(WorkflowState::sessionPlanning));
    ui = std::make_unique<Screen>(workspace::Workspace::in(person.directory(), [this] { return person.now; }),
                                  work::Drafts({}), std::nullopt);
    EXPECT_TRUE(shows("Drafts are not kept"));
    presses("x");
    presses(withControl('o'));
    presses("n");
    EXPECT_FALSE(shows("Drafts are not kept"));
    presses(escape);
    presses(escape);
    ASSERT_EQ(person.types({"focus", "--outcome", "Another", "--energy", "4", "--morale", "3"}).code,
              ExitCode::done);
    ui->refresh();
    EXPECT_TRUE(shows("What you wrote could not be"));
}

TEST_F(ScreenOfAPerson, seesNoMessageAboutFilesThatCanBeUsedAgain)
{
    opens(stateIn(WorkflowState::focusing));
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    presses(" ");
    EXPECT_TRUE(shows("The state cannot be used"));
    writeText(person.store().stateURL(), text);
    ui->refresh();
    EXPECT_TRUE(shows("Session 1 of 3"));
    EXPECT_FALSE(shows("cannot be used"));
}

TEST_F(ScreenOfAPerson, isOfferedNoEditingOfABlockThatIsNotScheduled)
{
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock->plannedStart.reset();
    opens(state);
    EXPECT_FALSE(shows("cancel it"));
    EXPECT_FALSE(shows("edit it"));
}

TEST_F(ScreenOfAPerson, keepsAHalfWrittenFormThroughAnyOtherChange)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses("Half a plan");
    ASSERT_EQ(person.types({"ask", "Which build?"}).code, ExitCode::done);
    ui->refresh();
    ui->resize(smallWindow);
    EXPECT_TRUE(shows("Half a plan"));
    ui->resize(usualWindow);
    EXPECT_TRUE(shows("Half a plan"));
    EXPECT_TRUE(shows("1 question"));
}

TEST_F(ScreenOfAPerson, findsTheDraftOfAnAnswerAgain)
{
    opens();
    presses("anWhy?");
    presses(escape);
    presses("n");
    EXPECT_TRUE(shows("Why?"));
    EXPECT_TRUE(person.state().agentQuestions.empty());
}

TEST_F(ScreenOfAPerson, changesNothingInAWindowThatIsTooSmall)
{
    opens(stateIn(WorkflowState::focusing));
    presses("e");
    ui->resize({.rows = 4, .columns = 20});
    presses("yp");
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
    presses("q");
    EXPECT_TRUE(ui->isOver());
}

TEST_F(ScreenOfAPerson, confirmsInASmallWindowOnlyWhatItShowsWhole)
{
    opens(stateIn(WorkflowState::focusing));
    ui->resize({.rows = 5, .columns = 20});
    presses("e");
    EXPECT_TRUE(shows("before its time?"));
    presses("y");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionReview);
    opens(stateIn(WorkflowState::breaking));
    ui->resize({.rows = 5, .columns = 20});
    presses("f");
    EXPECT_TRUE(shows("This needs 40"));
    presses("y");
    EXPECT_EQ(person.state(), stateIn(WorkflowState::breaking));
    ui->resize(smallWindow);
    presses("fy");
    EXPECT_NE(person.state(), stateIn(WorkflowState::breaking));
}

TEST_F(ScreenOfAPerson, pressesTheKeyOfAHintByAClick)
{
    const auto clickOn = [&](const std::string& hint) {
        std::istringstream rows(ui->picture(screen::Charset::ascii).text());
        std::string row;
        for (std::size_t number = 0; std::getline(rows, row); ++number) {
            if (const std::size_t column = row.find(hint); column != std::string::npos) {
                presses(Key{.kind = Key::Kind::click, .place = {number, column + hint.size() - 1}});
                return;
            }
        }
        FAIL() << "no hint: " << hint;
    };
    opens(stateIn(WorkflowState::focusing));
    clickOn("space pause");
    EXPECT_TRUE(shows("paused since"));
    clickOn("? keys");
    EXPECT_TRUE(shows("you were away"));
    clickOn("Esc back");
    presses(Key{.kind = Key::Kind::click, .place = {0, 0}});
    presses(Key{.kind = Key::Kind::click, .place = {500, 500}});
    EXPECT_TRUE(shows("space go on"));
}

TEST_F(ScreenOfAPerson, pausesInASmallWindow)
{
    opens(stateIn(WorkflowState::focusing));
    ui->resize({.rows = 5, .columns = 20});
    presses(" ");
    EXPECT_TRUE(shows("paused"));
}

TEST_F(ScreenOfAPerson, readsLongMessagesInASmallWindowToo)
{
    opens(stateIn(WorkflowState::focusing));
    ui->resize(smallWindow);
    presses("-----");
    EXPECT_TRUE(shows("what is used, and for 366 days at"));
    EXPECT_TRUE(shows("most."));
    EXPECT_TRUE(shows("space pause"));
}

TEST_F(ScreenOfAPerson, isToldWhenALinkLeadsElsewhere)
{
    person.has(stateIn(WorkflowState::breaking));
    opens(WidgetRoute::focus);
    EXPECT_TRUE(shows("The screen focus is not open now; the work is at break."));
    opens(WidgetRoute::breakTime);
    EXPECT_FALSE(shows("is not open now"));
}

TEST_F(ScreenOfAPerson, seesWhyTheFilesCannotBeUsedAndThatTheyCanAgain)
{
    opens(stateIn(WorkflowState::sessionPlanning));
    presses("Half a plan");
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "spoilt");
    ui->refresh();
    EXPECT_TRUE(shows("The state cannot be used"));
    EXPECT_TRUE(ui->countsSeconds());
    presses("x");
    writeText(person.store().stateURL(), text);
    ui->refresh();
    EXPECT_TRUE(shows("Half a plan"));
    EXPECT_FALSE(shows("Half a planx"));
}

TEST_F(ScreenOfAPerson, opensBeforeTheFilesCanBeUsed)
{
    person.has(stateIn(WorkflowState::focusing));
    const std::string text = textOf(person.store().stateURL());
    writeText(person.store().stateURL(), "{}");
    opens();
    EXPECT_TRUE(shows("The state cannot be used"));
    writeText(person.store().stateURL(), text);
    ui->refresh();
    EXPECT_TRUE(shows("Session 1 of 3"));
    presses("q");
    EXPECT_TRUE(ui->isOver());
}

TEST_F(ScreenOfAPerson, leavesWithOneKeyAndWithNothingWritten)
{
    person.has(stateIn(WorkflowState::focusing));
    const auto before = pictureOf(person.directory());
    opens();
    presses("q");
    EXPECT_TRUE(ui->isOver());
    EXPECT_EQ(pictureOf(person.directory()), before);
    opens();
    presses("aq");
    EXPECT_TRUE(ui->isOver());
}

TEST_F(ScreenOfAPerson, saysThatTheVersionBeforeCouldNotBeKept)
{
    const TemporaryDirectory elsewhere;
    const std::filesystem::path noDirectory = elsewhere.path() / "file";
    writeText(noDirectory, "");
    person.has(stateIn(WorkflowState::focusing));
    ui = std::make_unique<Screen>(workspace::Workspace::in(
                                      person.directory(), [this] { return person.now; }, noDirectory),
                                  work::Drafts(person.stateHome()), std::nullopt);
    presses(" ");
    EXPECT_TRUE(shows("The version before this change could not be kept"));
    EXPECT_TRUE(person.state().currentSession()->pausedAt);
}

TEST_F(ScreenOfAPerson, hearsOfAnEventBeforeARefusedStep)
{
    opens(stateIn(WorkflowState::focusing));
    person.now = moment + 1'600;
    presses(" ");
    EXPECT_TRUE(ui->takeBell());
    EXPECT_TRUE(shows("This action is not available"));
}

/// A person at the screen whose versions are kept.
class ScreenWithVersions : public ScreenOfAPerson {
protected:
    void opens(const QuillmereState& state)
    {
        person.has(state);
        ui = std::make_unique<Screen>(
            workspace::Workspace::in(
                person.directory(), [this] { return person.now; }, person.stateHome()),
            work::Drafts(person.stateHome()), std::nullopt);
    }
};

TEST_F(ScreenWithVersions, undoesWithOneKeyAfterAQuestion)
{
    opens(stateIn(WorkflowState::focusing));
    presses(" u");
    EXPECT_TRUE(shows("Undo: focus session 1 paused (15:00)"));
    presses("n");
    EXPECT_TRUE(person.state().currentSession()->pausedAt);
    presses("uy");
    EXPECT_FALSE(person.state().currentSession()->pausedAt);
    EXPECT_TRUE(shows("Undone: focus session 1 paused (15:00)"));
    presses("Uy");
    EXPECT_TRUE(person.state().currentSession()->pausedAt);
}

TEST_F(ScreenWithVersions, undoesFromAForm)
{
    opens(stateIn(WorkflowState::focusing));
    presses("ey");
    presses("y");
    presses(escape);
    EXPECT_TRUE(shows("undo the last change"));
    presses("uy");
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
}

TEST_F(ScreenWithVersions, isToldThatThereIsNothingToUndo)
{
    opens(stateIn(WorkflowState::focusing));
    presses("u");
    EXPECT_TRUE(shows("There is no change to undo"));
}

TEST_F(ScreenWithVersions, hearsWhatAnUndoCausesAtOnce)
{
    opens(stateWithScheduledBlock());
    presses("cy");
    waits(4'000);
    presses("uy");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
    EXPECT_TRUE(ui->takeBell());
    EXPECT_TRUE(shows("Undone: scheduled block cancelled"));
}

TEST_F(ScreenOfAPerson, isOfferedNoUndoWithoutVersions)
{
    opens(stateIn(WorkflowState::focusing));
    EXPECT_FALSE(shows("u undo"));
}

}  // namespace
}  // namespace quillmere::test
