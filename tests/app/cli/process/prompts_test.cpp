// Prompts in a window of a real terminal.
#include <filesystem>

#include "program_testing.hpp"
#include "terminal_window.hpp"

namespace quillmere::test {
namespace {

class PromptsInAWindow : public testing::Test {
protected:
    Person person;
    const TerminalWindow window{person};

    /// Waits for the end of a prompt, then types an answer and presses Enter.
    void answers(const std::string& prompt, const std::string& text = "") const
    {
        ASSERT_TRUE(window.shows(prompt));
        window.types(text);
        window.presses("Enter");
    }
    /// The same with keys between two texts.
    void answersWithKeys(const std::string& prompt, const std::string& text, const std::string& keys,
                         const std::string& then = "") const
    {
        ASSERT_TRUE(window.shows(prompt));
        window.types(text);
        window.presses(keys);
        window.types(then);
        window.presses("Enter");
    }
    void pastes(const std::string& prompt, const std::string& text) const
    {
        ASSERT_TRUE(window.shows(prompt));
        window.pastes(text);
        window.presses("Enter");
    }
    void has(WorkflowState workflowState) const { person.has(stateIn(workflowState)); }
};

TEST_F(PromptsInAWindow, areEditedWithTheKeysOfALine)
{
    window.runs("$Q plan");
    answersWithKeys("come out of it?", "Cpter one!", "Home Right", "ha");
    answersWithKeys("And what else? (empty: nothing)", "Chapter wrong two", "C-Left C-w");
    answers("(empty: nothing)\n");
    answersWithKeys("Why does it matter?", "\u65E5\u672C\u00E9", "Left BSpace");
    answersWithKeys("How will you know that it is done?", "Read aloud", "C-a C-k", "Heard");
    answersWithKeys("What could get in the way?", "Mail", "C-u", "Phone");
    answersWithKeys("What can be measured at the end?", "2000 wXords", "M-b Delete");
    answersWithKeys("What else should be at hand?", "Blue folder", "C-Left C-Left Right C-d", "L");
    answers("How long is a focus session? [25m]", "50m");
    answers("How long is a break? [5m]");
    answers("How many focus sessions? [8]", "4");
    EXPECT_TRUE(window.shows("4 \u00D7 50 min, until "));
    answers("When does it begin? (14:30, +1h) [now]");
    ASSERT_TRUE(window.shows("The block has begun."));
    const Block block = *person.state().currentBlock;
    ASSERT_EQ(block.outcomes.size(), 2U);
    EXPECT_EQ(block.outcomes[0].title, "Chapter one!");
    EXPECT_EQ(block.outcomes[1].title, "Chapter two");
    EXPECT_EQ(block.whyValue, "\u65E5\u00E9");
    EXPECT_EQ(block.doneTest, "Heard");
    EXPECT_EQ(block.hazards, "Phone");
    EXPECT_EQ(block.measurableCheck, "2000 Xords");
    EXPECT_EQ(block.contextNotes, "BLue folder");
    EXPECT_EQ(block.focusDurationSeconds, 3000);
    EXPECT_EQ(block.breakDurationSeconds, 300);
    EXPECT_EQ(block.cycleCount, 4);
}

TEST_F(PromptsInAWindow, askAgainAfterASlip)
{
    has(WorkflowState::sessionReview);
    window.runs("$Q review");
    answers("Was it completed? (yes, half, no)", "maybe");
    answers("Say whether it was completed", "H");
    answers("What came out of it?", "Headings");
    answers("What distracted you?");
    answers("What would you do better?");
    answers("What should this session bring about?", "A draft");
    answers("What is the first action?");
    answers("and what then?");
    answers("How will you look at it?");
    answers("(its number) [none]", "3");
    answers("The block has no outcome 3.", "2");
    answers("How much energy is there? (1 to 5) [3]", "9");
    answers("\"9\" is no whole number from 1 to 5.", "4");
    answers("How is the morale? (1 to 5) [3]");
    ASSERT_TRUE(window.shows("The review is saved."));
    const QuillmereState state = person.state();
    EXPECT_EQ(state.currentSession()->review->completion, CompletionResult::half);
    EXPECT_EQ(state.plannedNextSession->blockOutcomeID, state.currentBlock->outcomes[1].id);
    EXPECT_EQ(state.plannedNextSession->energy, 4);
    EXPECT_EQ(state.plannedNextSession->morale, 3);
}

TEST_F(PromptsInAWindow, takeAPasteAsText)
{
    has(WorkflowState::sessionPlanning);
    window.runs("$Q focus");
    pastes("What should this session bring about?", "\nAn outline\n\twith headings\n\n");
    pastes("What is the first action?", "Open the notes\x03\x04\x1b[D");
    pastes("and what then?", "Phone rings:\nin the drawer");
    answers("How will you look at it?");
    answers("(its number) [none]");
    answers("How much energy is there? (1 to 5) [3]");
    answers("How is the morale? (1 to 5) [3]");
    ASSERT_TRUE(window.shows("Focus."));
    const SessionPlan plan = person.state().currentSession()->plan;
    EXPECT_EQ(plan.intendedOutcome, "An outline  with headings");
    EXPECT_EQ(plan.firstAction, "Open the notes[D");
    EXPECT_EQ(plan.hazardsMitigation, "Phone rings:\nin the drawer");
    EXPECT_EQ(plan.energy, 3);
}

TEST_F(PromptsInAWindow, takeNoKeyForTextThatTheyDoNotKnow)
{
    has(WorkflowState::blockReview);
    window.runs("$Q reflect");
    answersWithKeys("What was produced?", "A chap", "F5 PPage NPage Tab BTab C-x C-v C-o S-Left M-x", "ter");
    ASSERT_TRUE(window.shows("How does it compare with the usual?"));
    // Ill-formed UTF-8, and a C1 control character.
    window.sends("46 61 ff c3 73 c2 9b 74");
    window.presses("Enter");
    for (const char* const prompt : {"Where did it bog down?", "What went well?", "What is to be learnt"}) {
        answers(prompt);
    }
    ASSERT_TRUE(window.shows("The block is finished."));
    const BlockReview reflection = *person.state().blockHistory[0].reflection;
    EXPECT_EQ(reflection.outputProduced, "A chapter");
    EXPECT_EQ(reflection.normalComparison, "Fast");
}

TEST_F(PromptsInAWindow, bringEarlierAnswersWithTheArrowKeys)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.currentBlock = blockInWork(1, 2);
    state.currentBlock->sessions[0].plan.firstAction = "Read the notes";
    state.currentBlock->sessions[1].plan.firstAction = "Write \u00E9 \u65E5";
    person.has(state);
    window.runs("$Q focus --energy 2 --morale 2 --outcome Page; $Q status | head -1");
    ASSERT_TRUE(window.shows("Focus  Session 3 of 3"));
    person.has(state);
    window.runs("clear; $Q focus");
    answers("What should this session bring about?");
    answersWithKeys("What is the first action?", "Half", "Up Up Down Up Up Down C-e", "!");
    answers("and what then?");
    answers("How will you look at it?");
    answers("(its number) [none]");
    answers("How much energy is there? (1 to 5) [3]");
    answers("How is the morale? (1 to 5) [3]");
    ASSERT_TRUE(window.shows("Focus."));
    EXPECT_EQ(person.state().currentSession()->plan.firstAction, "Write \u00E9 \u65E5!");
}

TEST_F(PromptsInAWindow, keepWithEnterAndClearWithADash)
{
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock->plannedStart = Instant{4'000'000'000};
    state.currentBlock->whyValue = "A deadline";
    state.currentBlock->doneTest = "Read aloud";
    person.has(state);
    window.runs("$Q edit");
    answers("come out of it? [" + state.currentBlock->outcomes[0].title + "]");
    answers("And what else? [" + state.currentBlock->outcomes[1].title + "]");
    answers("(empty: nothing)");
    answers("Why does it matter? [A deadline]", "-");
    answersWithKeys("it is done? [Read aloud]", "", "Up Home", "Then: ");
    for (const char* const prompt :
         {"get in the way?", "measured at the end?", "be at hand?", "focus session?", "is a break?",
          "focus sessions?", "When does it begin?"}) {
        answers(prompt);
    }
    ASSERT_TRUE(window.shows("The scheduled block is changed."));
    Block expected = *state.currentBlock;
    expected.whyValue = "";
    expected.doneTest = "Then: Read aloud";
    EXPECT_EQ(person.state().currentBlock, expected);
}

struct Abandoned {
    const char* command;
    WorkflowState workflowState;
    const char* prompt;
    const char* second;
};

const Abandoned abandonedCommands[] = {
    {"plan", WorkflowState::idle, "come out of it?", "(empty: nothing)"},
    {"focus", WorkflowState::sessionPlanning, "bring about?", "first action?"},
    {"review --completion yes", WorkflowState::sessionReview, "came out of it?", "distracted you?"},
    {"reflect", WorkflowState::blockReview, "was produced?", "with the usual?"},
};

TEST_F(PromptsInAWindow, leaveEverythingAsItWasAtControlD)
{
    for (const Abandoned& abandoned : abandonedCommands) {
        SCOPED_TRACE(abandoned.command);
        has(abandoned.workflowState);
        const auto before = pictureOf(person.directory());
        window.runs("clear; $Q " + std::string(abandoned.command) + "; echo code $?");
        answers(abandoned.prompt, "Words");
        ASSERT_TRUE(window.shows(abandoned.second));
        window.presses("C-d");
        EXPECT_TRUE(window.shows("The input ended before all was answered. Nothing was done.\ncode 2"));
        EXPECT_EQ(pictureOf(person.directory()), before);
    }
}

TEST_F(PromptsInAWindow, comeBackAfterAStop)
{
    has(WorkflowState::blockReview);
    window.runs("$Q reflect");
    ASSERT_TRUE(window.shows("What was produced?"));
    window.types("A chap");
    ASSERT_TRUE(window.shows("produced? A chap"));
    window.presses("C-z");
    ASSERT_TRUE(window.shows("Stopped"));
    window.runs("clear; fg");
    ASSERT_TRUE(window.shows("What was produced? A chap"));
    window.types("ter");
    window.presses("Enter");
    ASSERT_TRUE(window.shows("How does it compare with the usual?"));
    window.resize(30, 10);
    window.types("Faster");
    EXPECT_TRUE(window.shows("Faster"));
    window.presses("C-c");
    ASSERT_TRUE(window.shows("ready>"));
    window.runs("clear; echo sa''ne");
    EXPECT_TRUE(window.shows("sane"));
    EXPECT_EQ(person.state().workflowState, WorkflowState::blockReview);
}

TEST_F(PromptsInAWindow, takeNoPasteForAgreement)
{
    person.has(stateWithScheduledBlock());
    QuillmereState state = stateWithScheduledBlock();
    state.currentBlock->plannedStart = Instant{4'000'000'000};
    state.currentBlock->outcomes[0].title = "A title \u65E5\u672C that takes the question over one row";
    person.has(state);
    window.runs("$Q cancel");
    pastes("(yes, no)", "y\ny\n");
    answersWithKeys("Say yes or no.", "no", "BSpace BSpace", "Y");
    EXPECT_TRUE(window.shows("The scheduled block is discarded."));
    EXPECT_EQ(person.state().currentBlock, std::nullopt);
}

TEST_F(PromptsInAWindow, takeNoControlCharactersWhereNoLineCanBeEdited)
{
    has(WorkflowState::blockReview);
    window.runs("TERM=dumb $Q reflect");
    answersWithKeys("What was produced?", "A chap", "Left", "ter");
    ASSERT_TRUE(window.shows("That has control characters. Type the answer again without them."));
    window.runs("A chapter");
    for (const char* const prompt : {"with the usual?", "bog down?", "What went well?", "to be learnt"}) {
        answers(prompt);
    }
    ASSERT_TRUE(window.shows("The block is finished."));
    EXPECT_EQ(person.state().blockHistory[0].reflection->outputProduced, "A chapter");
}

}  // namespace
}  // namespace quillmere::test
