// A block changed after it has begun.
#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

Person personWithABlock(WorkflowState workflowState)
{
    Person person;
    person.has(stateIn(workflowState));
    return person;
}

TEST(Change, setsTextsLengthsAndTheCount)
{
    const Person person = personWithABlock(WorkflowState::focusing);
    const Ending ending = person.types({"change", "--why", "Another reason", "--notes=", "--focus", "50m",
                                        "--break", "10m", "--cycles", "5"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The block is changed.\n\n"));
    Block expected = *stateIn(WorkflowState::focusing).currentBlock;
    expected.whyValue = "Another reason";
    expected.contextNotes = "";
    expected.focusDurationSeconds = 3000;
    expected.breakDurationSeconds = 600;
    expected.cycleCount = 5;
    EXPECT_EQ(person.state().currentBlock, expected);
    EXPECT_TRUE(filesAgree(person));
}

TEST(Change, keepsTheIdentifierOfAnOutcomeWithAnotherTitle)
{
    const Person person = personWithABlock(WorkflowState::focusing);
    EXPECT_EQ(person
                  .types({"change", "--outcome", "1=Chapter = one", "--outcome-remove", "2", "--outcome-add",
                          "Index", "--outcome-add", "Cover"})
                  .code,
              ExitCode::done);
    const std::vector<Outcome> before = stateIn(WorkflowState::focusing).currentBlock->outcomes;
    const std::vector<Outcome> after = person.state().currentBlock->outcomes;
    ASSERT_EQ(after.size(), 3u);
    EXPECT_EQ(after[0], (Outcome{.id = before[0].id, .title = "Chapter = one"}));
    EXPECT_EQ(after[1].title, "Index");
    EXPECT_EQ(after[2].title, "Cover");
}

TEST(Change, removesNoOutcomeThatASessionServes)
{
    expectRefusal(
        personWithABlock(WorkflowState::focusing), {"change", "--outcome-remove", "1"},
        "Session 1 serves the outcome \"Chapter one\", so that it cannot be removed. Possible: another "
        "title for it.");
}

TEST(Change, asksForEverythingWhenNothingIsSaid)
{
    Person person = personWithABlock(WorkflowState::focusing);
    person.isAsked = true;
    // The first outcome is served by the session, and one session has begun.
    person.answers = "-\nChapter 1\n-\nIndex\n\nAnother reason\n\n\n\n-\n50m\n\n1\n5\n";
    const Ending ending = person.types({"change"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_NE(ending.err.find("What should come out of it? [Chapter one] Session 1 serves the outcome"),
              std::string::npos)
        << ending.err;
    EXPECT_NE(ending.err.find("How many focus sessions? [3] The block cannot have this number of sessions"),
              std::string::npos)
        << ending.err;
    Block expected = *stateIn(WorkflowState::focusing).currentBlock;
    const Block block = *person.state().currentBlock;
    ASSERT_EQ(block.outcomes.size(), 2U);
    EXPECT_EQ(block.outcomes[0], (Outcome{.id = expected.outcomes[0].id, .title = "Chapter 1"}));
    EXPECT_EQ(block.outcomes[1].title, "Index");
    expected.outcomes = block.outcomes;
    expected.whyValue = "Another reason";
    expected.contextNotes = "";
    expected.focusDurationSeconds = 3000;
    expected.cycleCount = 5;
    EXPECT_EQ(block, expected);
}

TEST(Change, asksNothingWhereNoBlockHasBegun)
{
    Person person = personWithABlock(WorkflowState::idle);
    person.isAsked = true;
    const Ending ending = person.types({"change"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.err.find("What should"), std::string::npos) << ending.err;
}

TEST(Change, namesTheOutcomesByTheirNumber)
{
    const Person person = personWithABlock(WorkflowState::focusing);
    expectRefusal(person, {"change", "--outcome", "3=More"}, "The block has no outcome 3.", ExitCode::usage);
    expectRefusal(person, {"change", "--outcome-remove", "one"}, "The block has no outcome one.",
                  ExitCode::usage);
    for (const char* const title : {"Chapter", "=Chapter", "2", ""}) {
        EXPECT_EQ(person.types({"change", "--outcome", title}).code, ExitCode::usage) << title;
    }
}

TEST(Change, refusesACountOfNoMoreThanHaveBegunAndNamesTheWay)
{
    expectRefusal(
        personWithABlock(WorkflowState::breaking), {"change", "--cycles", "1"},
        "The block cannot have this number of sessions, since it has begun 1. Possible: 2 to 1000, or "
        "finish, which ends the block.");
    expectRefusal(personWithABlock(WorkflowState::breaking), {"change", "--cycles", "1001"},
                  "--cycles: \"1001\" is no whole number from 1 to 1000. (quillmere change --help)",
                  ExitCode::usage);
}

TEST(Change, leadsBackFromTheReviewOfTheBlock)
{
    const Person person = personWithABlock(WorkflowState::blockReview);
    EXPECT_EQ(person.types({"change", "--cycles", "4"}).code, ExitCode::done);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(Change, letsTheRunningBreakLastAsLong)
{
    Person person = personWithABlock(WorkflowState::breaking);
    const Ending ending = person.typesLater(240, {"change", "--break", "10m"});
    EXPECT_NE(ending.out.find("\n06:00 "), std::string::npos) << ending.out;
    expectRefusal(
        person, {"change", "--break", "3m"},
        "The running break cannot become shorter than what has passed of it, nor longer than 366 days. "
        "Possible lengths: 4 min to 366 d.");
}

TEST(Change, needsAnOption)
{
    expectRefusal(personWithABlock(WorkflowState::focusing), {"change"},
                  "Say what to change, such as --cycles 5; quillmere change --help lists the options.",
                  ExitCode::usage);
}

TEST(Change, refusesATextThatIsNoLength)
{
    expectRefusal(personWithABlock(WorkflowState::focusing), {"change", "--break", "soon"},
                  "--break: \"soon\" is no duration from 1 second to 366 days, such as 25m or 1h30m.",
                  ExitCode::usage);
}

TEST(Change, saysElsewhereWhatIsPossible)
{
    // The refusal comes before an option that is wrong.
    for (const Words& words : {Words{"change"}, Words{"change", "--focus", "soon"}}) {
        expectRefusal(personWithABlock(WorkflowState::blockPlanning), words,
                      "No block has begun: a block is being planned. Possible: plan, cancel.");
    }
}

}  // namespace
}  // namespace quillmere::test
