// Prompts on a terminal.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

Ending asked(Person& person, const Words& words, const std::string& answers)
{
    person.isAsked = true;
    person.answers = answers;
    return person.types(words);
}

constexpr const char* explanation =
    "Enter takes what is in brackets, - clears it, Control-D changes nothing.\n";

std::string lines(int count) { return std::string(static_cast<std::size_t>(count), '\n'); }

TEST(PlanPrompt, asksForEverythingAndBegins)
{
    const TimeZone here("UTC");
    Person person;
    const Ending ending = asked(person, {"plan"},
                                "Chapter one\nChapter two\n\nA deadline\nRead aloud\nMail\n2000 words\n"
                                "Blue folder\n50m\n10m\n4\n\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(
        ending.err,
        std::string(explanation) +
            "What should come out of it? And what else? (empty: nothing) And what else? (empty: nothing) "
            "Why does it matter? How will you know that it is done? What could get in the way? "
            "What can be measured at the end? What else should be at hand? "
            "How long is a focus session? [25m] How long is a break? [5m] How many focus sessions? [8] "
            "4 \u00D7 50 min, until 19:00\nWhen does it begin? (14:30, +1h) [now] ");
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    const Block& block = *state.currentBlock;
    ASSERT_EQ(block.outcomes.size(), 2u);
    EXPECT_EQ(block.outcomes[1].title, "Chapter two");
    EXPECT_EQ(block.whyValue, "A deadline");
    EXPECT_EQ(block.doneTest, "Read aloud");
    EXPECT_EQ(block.hazards, "Mail");
    EXPECT_EQ(block.measurableCheck, "2000 words");
    EXPECT_EQ(block.contextNotes, "Blue folder");
    EXPECT_EQ(block.focusDurationSeconds, 3000);
    EXPECT_EQ(block.breakDurationSeconds, 600);
    EXPECT_EQ(block.cycleCount, 4);
}

TEST(PlanPrompt, asksOnlyForWhatIsMissing)
{
    const TimeZone here("UTC");
    Person person;
    const Ending ending = asked(person,
                                {"plan", "--outcome", "Chapter", "--why", "Why not", "--hazards", "Mail",
                                 "--check", "Words", "--at", "+1h", "--focus", "50m", "--cycles", "2"},
                                "Read aloud\nBlue folder\n10m\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, std::string(explanation) +
                              "How will you know that it is done? What else should be at hand? "
                              "How long is a break? [5m] 2 \u00D7 50 min, from 16:00 until 18:00\n");
    EXPECT_EQ(person.state().currentBlock->doneTest, "Read aloud");
    EXPECT_EQ(person.state().currentBlock->breakDurationSeconds, 600);
}

TEST(PlanPrompt, asksAgainForNumbersThatTheEngineWouldRefuse)
{
    Person person;
    const Ending ending = asked(person, {"plan", "--outcome", "Chapter"},
                                lines(5) + "soon\n-\n50m\n0\n10m\n0\n-1\n1001\nmany\n4\n\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_NE(ending.err.find("\"-\" is no duration"), std::string::npos) << ending.err;
    EXPECT_NE(ending.err.find("\"0\" is no whole number from 1 to 1000.\n"), std::string::npos) << ending.err;
    const Block block = *person.state().currentBlock;
    EXPECT_EQ(block.focusDurationSeconds, 3000);
    EXPECT_EQ(block.breakDurationSeconds, 600);
    EXPECT_EQ(block.cycleCount, 4);
}

TEST(PlanPrompt, saysWhenABlockEndsThatBeginsLater)
{
    const TimeZone here("UTC");
    Person person;
    const Ending ending = asked(person, {"plan", "--cycles", "2"}, lines(8) + "16:30\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(
        ending.err.ends_with("2 \u00D7 25 min, until 16:00\nWhen does it begin? (14:30, +1h) [now] "
                             "2 \u00D7 25 min, from 16:30 until 17:30\n"))
        << ending.err;
}

TEST(PlanPrompt, takesATimeToBeginAt)
{
    Person person;
    EXPECT_EQ(asked(person, {"plan"}, lines(9) + "+2h\n").code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->plannedStart, moment + 7200);
}

TEST(PlanPrompt, asksAgainForATimeThatIsNone)
{
    // One typing mistake must not lose seven answers.
    Person person;
    EXPECT_EQ(asked(person, {"plan", "--why", "Kept"}, lines(8) + "noon\n+2h\n").code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->plannedStart, moment + 7200);
    EXPECT_EQ(person.state().currentBlock->whyValue, "Kept");
}

TEST(PlanPrompt, comesAfterASlipOnTheCommandLineIsFound)
{
    for (const Words& words : {Words{"plan", "--focus", "soon"}, Words{"plan", "--cycles", "1001"},
                               Words{"plan", "--at", "noon"}, Words{"plan", "--at", "2026-11-01 00:00"}}) {
        Person person;
        const Ending ending = asked(person, words, "Chapter" + lines(12));
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.err.find("What should come out of it?"), std::string::npos);
    }
}

TEST(PlanPrompt, asksAgainForATimeThatHasPassed)
{
    const TimeZone here("UTC");
    Person person;
    EXPECT_EQ(asked(person, {"plan"}, lines(9) + "2026-11-15 14:59\n2026-11-15 15:00\n").code,
              ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->plannedStart, moment);
}

TEST(PlanPrompt, comesAfterAValueThatTheEngineRefusesIsFound)
{
    for (const Words& words :
         {Words{"plan", "--cycles", "0"}, Words{"plan", "--cycles", "-1", "--at", "+1h"}}) {
        Person person;
        const Ending ending = asked(person, words, "Chapter" + lines(12));
        EXPECT_EQ(ending.code, ExitCode::refused);
        EXPECT_EQ(ending.err, "Durations and the cycle count must be greater than zero.\n");
    }
}

TEST(PlanPrompt, keepsWhatAScheduledBlockHadWhereNothingIsTyped)
{
    Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    // Two outcomes, and no more.
    EXPECT_EQ(asked(person, {"plan"}, lines(3) + "Another reason\n" + lines(8)).code, ExitCode::done);
    Block expected = *state.currentBlock;
    expected.whyValue = "Another reason";
    EXPECT_EQ(person.state().currentBlock, expected);
}

TEST(PlanPrompt, changesOutcomesOneByOne)
{
    Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    EXPECT_EQ(asked(person, {"plan"}, "-\nAnother title\nOne more\n\n" + lines(9)).code, ExitCode::done);
    const std::vector<Outcome> outcomes = person.state().currentBlock->outcomes;
    ASSERT_EQ(outcomes.size(), 2U);
    EXPECT_EQ(outcomes[0], (Outcome{.id = state.currentBlock->outcomes[1].id, .title = "Another title"}));
    EXPECT_EQ(outcomes[1].title, "One more");
}

TEST(PlanPrompt, clearsATextAndTheStartWithADash)
{
    Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    EXPECT_EQ(asked(person, {"plan"}, lines(3) + "-\n" + lines(7) + "-\n").code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->whyValue, "");
    EXPECT_EQ(person.state().currentBlock->plannedStart, std::nullopt);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(PlanPrompt, asksNothingThatWouldBeRefused)
{
    for (const WorkflowState workflowState : {WorkflowState::focusing, WorkflowState::blockReview}) {
        Person person;
        person.has(stateIn(workflowState));
        const Ending ending = asked(person, {"plan"}, "Chapter" + lines(12));
        EXPECT_EQ(ending.code, ExitCode::refused);
        EXPECT_TRUE(ending.err.starts_with("This action is not available in the current workflow state. "));
    }
}

constexpr const char* planQuestions =
    "What should this session bring about? What is the first action? "
    "What could get in the way, and what then? How will you look at it?   1  Chapter one\n"
    "  2  Chapter two\n"
    "Which outcome of the block does it serve? (its number) [none] How much energy is there? (1 to 5) [3] "
    "How is the morale? (1 to 5) [3] ";

TEST(FocusPrompt, asksForAPlanWhenNoneIsSaved)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    const Ending ending =
        asked(person, {"focus"}, "An outline\nOpen the notes\nPhone away\nAs play\n2\n4\n5\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, std::string(explanation) + planQuestions);
    const SessionPlan plan = person.state().currentSession()->plan;
    EXPECT_EQ(plan.intendedOutcome, "An outline");
    EXPECT_EQ(plan.firstAction, "Open the notes");
    EXPECT_EQ(plan.hazardsMitigation, "Phone away");
    EXPECT_EQ(plan.nicuFraming, "As play");
    EXPECT_EQ(plan.blockOutcomeID, person.state().currentBlock->outcomes[1].id);
    EXPECT_EQ(plan.energy, 4);
    EXPECT_EQ(plan.morale, 5);
}

TEST(FocusPrompt, takesWhatItShowsWhenEveryAnswerIsEmpty)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    EXPECT_EQ(asked(person, {"focus"}, lines(7)).code, ExitCode::done);
    const SessionPlan plan = person.state().currentSession()->plan;
    EXPECT_EQ(plan, SessionPlan::blank(plan.id));
}

TEST(FocusPrompt, asksAgainForARatingOrAnOutcomeThatIsNone)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    const Ending ending = asked(person, {"focus"}, lines(4) + "3\nfirst\n1\n0\n6\nhigh\n-\n4\n\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_NE(ending.err.find("The block has no outcome 3.\n"), std::string::npos) << ending.err;
    EXPECT_NE(ending.err.find("\"6\" is no whole number from 1 to 5.\n"), std::string::npos) << ending.err;
    EXPECT_EQ(person.state().currentSession()->plan.energy, 4);
    EXPECT_EQ(person.state().currentSession()->plan.blockOutcomeID,
              person.state().currentBlock->outcomes[0].id);
}

TEST(FocusPrompt, asksForTheRatingsOnlyWhenSomeOfThePlanIsGiven)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    const Ending ending = asked(person, {"focus", "--outcome", "Page", "--morale", "2"}, "4\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, std::string(explanation) + "How much energy is there? (1 to 5) [3] ");
    EXPECT_EQ(person.state().currentSession()->plan.energy, 4);
    EXPECT_EQ(person.state().currentSession()->plan.morale, 2);
}

TEST(FocusPrompt, asksForNoOutcomeServedWhereNoneHasATitle)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.currentBlock->outcomes = {{.id = identifier(1), .title = ""}};
    person.has(state);
    const Ending ending = asked(person, {"focus"}, lines(6));
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err.find("Which outcome"), std::string::npos) << ending.err;
}

TEST(FocusPrompt, staysAwayWhenThereIsAPlanOrAllOfItIsGiven)
{
    for (const bool isSaved : {true, false}) {
        Person person;
        QuillmereState state = stateIn(WorkflowState::sessionPlanning);
        state.plannedNextSession = isSaved ? std::optional(samplePlan(2)) : std::nullopt;
        person.has(state);
        const Words words =
            isSaved ? Words{"focus"} : Words{"focus", "--outcome", "Page", "--energy", "4", "--morale", "2"};
        const Ending ending = asked(person, words, "");
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_EQ(ending.err, isSaved ? "" : explanation);
    }
}

TEST(FocusPrompt, comesAfterASlipOnTheCommandLineIsFound)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    EXPECT_EQ(asked(person, {"focus", "--towards", "9"}, lines(7)).err, "The block has no outcome 9.\n");
    EXPECT_EQ(asked(person, {"focus", "--energy", "9"}, lines(7)).err,
              "Energy and Morale must each be from 1 through 5.\n");
}

TEST(FocusPrompt, staysAwayWhenNoCycleIsLeft)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.currentBlock = stateIn(WorkflowState::blockReview).currentBlock;
    person.has(state);
    const Ending ending = asked(person, {"focus"}, "An outline" + lines(7));
    EXPECT_NE(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err.find("What should"), std::string::npos) << ending.err;
}

TEST(FocusPrompt, comesWhenAScheduledBlockHasBecomeDue)
{
    Person person;
    person.has(stateWithScheduledBlock());
    person.now = moment + 4000;
    EXPECT_EQ(asked(person, {"focus"}, "An outline" + lines(7)).code, ExitCode::done);
    EXPECT_EQ(person.state().currentSession()->plan.intendedOutcome, "An outline");
}

TEST(ReviewPrompt, asksForTheReviewAndTheNextPlan)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const Ending ending = asked(person, {"review"},
                                "half\nHeadings\nThe door\nSort later\nA draft\nWrite\nNo mail\nBadly\n1\n"
                                "2\n4\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, std::string(explanation) +
                              "Was it completed? (yes, half, no) What came out of it? What distracted you? "
                              "What would you do better? The next session.\n" +
                              planQuestions);
    const QuillmereState state = person.state();
    const SessionReview& review = *state.currentSession()->review;
    EXPECT_EQ(review.completion, CompletionResult::half);
    EXPECT_EQ(review.noteworthyResult, "Headings");
    EXPECT_EQ(review.distractions, "The door");
    EXPECT_EQ(review.improvement, "Sort later");
    EXPECT_EQ(state.plannedNextSession->intendedOutcome, "A draft");
    EXPECT_EQ(state.plannedNextSession->nicuFraming, "Badly");
    EXPECT_EQ(state.plannedNextSession->blockOutcomeID, state.currentBlock->outcomes[0].id);
    EXPECT_EQ(state.plannedNextSession->energy, 2);
    EXPECT_EQ(state.plannedNextSession->morale, 4);
}

TEST(ReviewPrompt, asksAgainForACompletionThatIsNone)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    EXPECT_EQ(asked(person, {"review", "--next-outcome", "More"}, "\nmaybe\n-\nYES\nHeadings\n\n\n\n\n").code,
              ExitCode::done);
    const SessionReview review = *person.state().currentSession()->review;
    EXPECT_EQ(review.completion, CompletionResult::yes);
    EXPECT_EQ(review.noteworthyResult, "Headings");
}

TEST(ReviewPrompt, asksForACompletionThatWasNotUnderstood)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    EXPECT_EQ(
        asked(person, {"review", "--completion", "maybe", "--next-outcome", "More"}, "n" + lines(6)).code,
        ExitCode::done);
    EXPECT_EQ(person.state().currentSession()->review->completion, CompletionResult::no);
}

TEST(ReviewPrompt, asksForTheRatingsOnlyWhenSomeOfTheNextPlanIsGiven)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const Ending ending =
        asked(person, {"review", "--completion", "yes", "--next-outcome", "More"}, lines(3) + "1\n5\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(
        ending.err.ends_with("The next session.\nHow much energy is there? (1 to 5) [3] "
                             "How is the morale? (1 to 5) [3] "))
        << ending.err;
    EXPECT_EQ(person.state().plannedNextSession->energy, 1);
    EXPECT_EQ(person.state().plannedNextSession->morale, 5);
}

struct BadNextPlan {
    Words words;
    ExitCode code;
    const char* message;
};

const BadNextPlan badNextPlans[] = {
    {{"review", "--next-energy", "9"},
     ExitCode::refused,
     "Energy and Morale must each be from 1 through 5.\n"},
    {{"review", "--completion", "yes", "--next-morale", "0"},
     ExitCode::refused,
     "Energy and Morale must each be from 1 through 5.\n"},
    {{"review", "--next-towards", "7"}, ExitCode::usage, "The block has no outcome 7.\n"},
};

TEST(ReviewPrompt, comesAfterASlipOnTheCommandLineIsFound)
{
    for (const BadNextPlan& bad : badNextPlans) {
        Person person;
        person.has(stateIn(WorkflowState::sessionReview));
        const Ending ending = asked(person, bad.words, "yes" + lines(12));
        EXPECT_EQ(ending.code, bad.code);
        EXPECT_EQ(ending.err, bad.message);
    }
}

TEST(ReviewPrompt, asksForNoNextPlanAfterTheLastSession)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::blockReview);
    state.workflowState = WorkflowState::sessionReview;
    person.has(state);
    EXPECT_EQ(asked(person, {"review"}, "yes\n\n\n\n").code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockReview);
}

TEST(ReviewPrompt, asksForTheReflectionAfterAnOnlySession)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    state.currentBlock->cycleCount = 1;
    person.has(state);
    const Ending ending = asked(person, {"review", "--lessons", "Door"}, "yes\n\n\n\nA chapter\n\n\n\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err,
              "Enter takes what is in brackets, - clears it, Control-D changes nothing.\n"
              "Was it completed? (yes, half, no) What came out of it? What distracted you? "
              "What would you do better? The block.\nWhat was produced? How does it compare with the usual? "
              "Where did it bog down? What went well? ");
    ASSERT_EQ(person.state().blockHistory.size(), 1u);
    EXPECT_EQ(person.state().blockHistory[0].reflection->outputProduced, "A chapter");
    EXPECT_EQ(person.state().blockHistory[0].reflection->lessons, "Door");
}

TEST(NowPrompt, asksForTheRatingsThatAreMissing)
{
    Person person;
    const Ending ending = asked(person, {"now", "Outline", "--energy", "4"}, "6\nmuch\n2\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err,
              "How is the morale? (1 to 5) [3] \"6\" is no whole number from 1 to 5.\n"
              "How is the morale? (1 to 5) [3] \"much\" is no whole number from 1 to 5.\n"
              "How is the morale? (1 to 5) [3] ");
    EXPECT_EQ(person.state().currentSession()->plan.energy, 4);
    EXPECT_EQ(person.state().currentSession()->plan.morale, 2);
}

TEST(NowPrompt, leavesEverythingAsItWasAtTheEndOfTheInput)
{
    Person person;
    EXPECT_EQ(asked(person, {"now", "Outline"}, "4\n").code, ExitCode::usage);
    EXPECT_EQ(person.names(), Words{});
}

TEST(NowPrompt, asksNothingThatWouldBeRefused)
{
    Person person;
    person.has(stateIn(WorkflowState::breaking));
    const Ending ending = asked(person, {"now", "Outline"}, "");
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_TRUE(ending.err.starts_with("This action is not available in the current workflow state. "));
}

TEST(PlanPrompt, offersTheWordsOfTheModel)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory = {blockInWork(1, 3)};
    person.has(state);
    const Ending ending = asked(person, {"plan", "--like", "last"}, lines(3) + "Another reason\n" + lines(9));
    ASSERT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_NE(ending.err.find("What should come out of it? [Chapter one] And what else? [Chapter two] "),
              std::string::npos)
        << ending.err;
    EXPECT_EQ(person.state().currentBlock->outcomes.size(), 2u);
    EXPECT_EQ(person.state().currentBlock->whyValue, "Another reason");
    EXPECT_EQ(person.state().currentBlock->doneTest, state.blockHistory[0].doneTest);
}

TEST(ReviewPrompt, comesForASessionThatRanOutUnseen)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.now = moment + 5000;
    EXPECT_EQ(asked(person, {"review"}, "yes" + lines(4) + "More" + lines(7)).code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::breaking);
}

TEST(ReflectPrompt, asksForTheReflection)
{
    Person person;
    person.has(stateIn(WorkflowState::blockReview));
    const Ending ending =
        asked(person, {"reflect", "--went-well", "Writing"}, "A chapter\nFaster\nOrder\nDoor\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, std::string(explanation) +
                              "What was produced? How does it compare with the usual? Where did it bog down? "
                              "What is to be learnt from it? ");
    EXPECT_EQ(person.state().blockHistory[0].reflection, (BlockReview{.outputProduced = "A chapter",
                                                                      .normalComparison = "Faster",
                                                                      .boggedDown = "Order",
                                                                      .wentWell = "Writing",
                                                                      .lessons = "Door"}));
}

struct Asking {
    Words words;
    WorkflowState workflowState;
};

const Asking askingCommands[] = {
    {{"plan"}, WorkflowState::idle},
    {{"focus"}, WorkflowState::sessionPlanning},
    {{"review"}, WorkflowState::sessionReview},
    {{"reflect"}, WorkflowState::blockReview},
};

TEST(Prompt, asksNothingThatWouldBeRefused)
{
    for (const Asking& asking : askingCommands) {
        SCOPED_TRACE(asking.words.front());
        Person person;
        person.has(stateIn(WorkflowState::breaking));
        Words words = asking.words;
        if (words.front() == "review") {
            words.insert(words.end(), {"--completion", "yes"});
        }
        const Ending ending = asked(person, words, "");
        EXPECT_EQ(ending.code, ExitCode::refused);
        EXPECT_TRUE(ending.err.starts_with("This action is not available in the current workflow state. "));
    }
}

TEST(Prompt, takesTheEndOfTheInputForGivingUp)
{
    // Control-D must not begin a block, or close one for good.
    for (const Asking& asking : askingCommands) {
        for (const std::string answers : {"", "yes\n", "yes\nand"}) {
            SCOPED_TRACE(asking.words.front() + " " + answers);
            Person person;
            person.has(stateIn(asking.workflowState));
            const auto before = pictureOf(person.directory());
            const Ending ending = asked(person, asking.words, answers);
            EXPECT_EQ(ending.code, ExitCode::usage);
            EXPECT_EQ(pictureOf(person.directory()), before);
        }
    }
}

TEST(Prompt, asksAgainForAnAnswerThatIsNoText)
{
    for (const Asking& asking : askingCommands) {
        SCOPED_TRACE(asking.words.front());
        Person person;
        person.has(stateIn(asking.workflowState));
        const Ending ending = asked(person, asking.words, "yes\n\xFF" + lines(14));
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_NE(ending.err.find(" That is not well-formed UTF-8.\n"), std::string::npos);
    }
}

TEST(Prompt, asksAgainForAnAnswerWithControlCharacters)
{
    // What an arrow key leaves where no line can be edited.
    Person person;
    person.has(stateIn(WorkflowState::blockReview));
    const Ending ending = asked(person, {"reflect"}, "A chap\x1B[Dter\nA chapter\n" + lines(4));
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_NE(ending.err.find(" That has control characters. Type the answer again without them.\n"),
              std::string::npos);
    EXPECT_EQ(person.state().blockHistory[0].reflection->outputProduced, "A chapter");
}

TEST(Prompt, takesALetterForYesAndNoInEitherCase)
{
    for (const std::string word : {"y", "Y", "yes", "YES", "n", "N", "no", "No"}) {
        SCOPED_TRACE(word);
        Person person;
        person.has(stateWithScheduledBlock());
        const Ending ending = asked(person, {"cancel"}, "perhaps\n\n" + word + "\n");
        const bool agrees = word[0] == 'y' || word[0] == 'Y';
        EXPECT_EQ(ending.code, agrees ? ExitCode::done : ExitCode::refused);
        EXPECT_NE(ending.err.find("(yes, no) Say yes or no.\n"), std::string::npos) << ending.err;
    }
}

TEST(Prompt, stopsBeforeAStateThatCannotBeUsed)
{
    for (const Asking& asking : askingCommands) {
        SCOPED_TRACE(asking.words.front());
        Person person;
        writeText(person.store().stateURL(), "spoilt");
        const Ending ending = asked(person, asking.words, "yes" + lines(14));
        EXPECT_EQ(ending.code, ExitCode::unusableData);
        EXPECT_EQ(textOf(person.store().stateURL()), "spoilt");
    }
}

}  // namespace
}  // namespace quillmere::test
