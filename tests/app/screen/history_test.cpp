// The finished blocks on the live screen.
#include "screen/screen_of_a_person.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

/// Finished at `moment`, days before.
Block finishedBlock(unsigned number, double daysBefore)
{
    Block block = blockInWork(number, 2);
    const std::string digits = std::to_string(1000 + number);
    block.id = *Identifier::fromText(digits + "0000-0000-4000-8000-000000000000");
    for (WorkSession& session : block.sessions) {
        session.id = Identifier::random();
    }
    block.outcomes.front().title = "Number " + std::to_string(number);
    block.sessions[1].endedAt = block.sessions[1].startedAt + 1500;
    block.sessions[1].review = sampleReview(2);
    block.sessions[1].review->completion = CompletionResult::yes;
    block.reflection = sampleReflection();
    block.completedAt = moment - daysBefore * 86'400;
    return block;
}

class HistoryAtTheScreen : public ScreenOfAPerson {
protected:
    /// Finished blocks, the newest of today and each a day before the one above it.
    void hasFinished(unsigned count, QuillmereState state = stateIn(WorkflowState::idle))
    {
        for (unsigned number = 1; number <= count; ++number) {
            state.blockHistory.push_back(finishedBlock(number + 1, number - 1.0));
        }
        opens(state);
    }
    std::string picture() const { return ui->picture(Charset::unicode).text(); }
};

TEST_F(HistoryAtTheScreen, listsTheFinishedBlocksWithDayNameSignsAndOutcome)
{
    hasFinished(2);
    presses("h");
    EXPECT_TRUE(shows("History  2 blocks"));
    EXPECT_TRUE(shows("▸ 2026-11-15  1002  ½ ✓ ·  Number 2"));
    EXPECT_TRUE(shows("\n      2026-11-14  1003  ½ ✓ ·  Number 3"));
}

TEST_F(HistoryAtTheScreen, hasTheBlockAtHandFirst)
{
    hasFinished(1, stateIn(WorkflowState::focusing));
    presses("h");
    EXPECT_TRUE(shows("▸ at hand     9F1C  ◐ · ·  Chapter one"));
    EXPECT_TRUE(shows("\n      2026-11-15"));
}

TEST_F(HistoryAtTheScreen, saysThatNoBlockIsFinished)
{
    opens();
    presses("h");
    EXPECT_TRUE(shows("No block is finished yet."));
    presses(enter);
    presses("d");
    presses(downKey);
    EXPECT_TRUE(shows("No block is finished yet."));
}

TEST_F(HistoryAtTheScreen, choosesWithTheArrowsAndLeavesWithPageKeys)
{
    hasFinished(40);
    presses("h");
    presses(downKey);
    EXPECT_TRUE(shows("▸ 2026-11-14"));
    presses(upKey);
    presses(upKey);
    EXPECT_TRUE(shows("▸ 2026-11-15"));
    EXPECT_TRUE(shows("PgDn scroll"));
    presses(pageDown);
    EXPECT_FALSE(shows("2026-11-15"));
    presses(endKey);
    EXPECT_TRUE(shows("▸ 2026-10-07"));
    EXPECT_TRUE(shows("↑\n"));
    EXPECT_FALSE(shows("↓\n"));
    presses(pageUp);
    EXPECT_FALSE(shows("▸ 2026-10-07"));
    presses(homeKey);
    EXPECT_TRUE(shows("▸ 2026-11-15"));
}

TEST_F(HistoryAtTheScreen, opensABlockWholeAndASessionOfIt)
{
    hasFinished(2);
    ui->resize({.rows = 56, .columns = 100});
    presses("h");
    presses(downKey);
    presses(enter);
    EXPECT_TRUE(shows("Number 3"));
    EXPECT_TRUE(shows("2000 words"));
    EXPECT_TRUE(shows("½ 1 of 3"));
    EXPECT_TRUE(shows("Close the door"));
    EXPECT_FALSE(shows("Enter open"));
    presses(downKey);
    presses(downKey);
    EXPECT_TRUE(shows("▸ ✓ 2 of 3"));
    presses(enter);
    EXPECT_TRUE(shows("Outcome of session 2"));
    EXPECT_FALSE(shows("Outcome of session 1"));
    EXPECT_FALSE(shows("2000 words"));
}

TEST_F(HistoryAtTheScreen, goesOneBackUpWithEachEscape)
{
    hasFinished(1);
    presses("h");
    presses(enter);
    presses(downKey);
    presses(enter);
    EXPECT_FALSE(shows("choose a session"));
    presses(escape);
    EXPECT_TRUE(shows("choose a session"));
    presses(escape);
    EXPECT_TRUE(shows("History  1 block"));
    presses(escape);
    EXPECT_TRUE(shows("p plan a block"));
}

TEST_F(HistoryAtTheScreen, quitsFromEachLevel)
{
    for (const std::string keys : {"h", "h\n"}) {
        hasFinished(1);
        presses(keys + "q");
        EXPECT_TRUE(ui->isOver());
    }
}

TEST_F(HistoryAtTheScreen, bringsTheChosenSessionIntoViewInASmallWindow)
{
    hasFinished(1);
    ui->resize({.rows = 15, .columns = 60});
    presses("h\n");
    EXPECT_FALSE(shows("✓ 2 of 3"));
    presses(downKey);
    presses(downKey);
    EXPECT_TRUE(shows("▸ ✓ 2 of 3"));
    presses(upKey);
    presses(upKey);
    EXPECT_TRUE(shows("The block"));
    presses(endKey);
    EXPECT_TRUE(shows("Close the door"));
}

TEST_F(HistoryAtTheScreen, narrowsTheListToTheBlocksWithAWord)
{
    hasFinished(12);
    presses("h/nUMBER 7");
    EXPECT_TRUE(shows("Search  nUMBER 7"));
    EXPECT_TRUE(shows("▸ 2026-11-10"));
    EXPECT_FALSE(shows("2026-11-15"));
    presses(enter);
    EXPECT_TRUE(shows("History  1 block with \"nUMBER 7\""));
    presses(enter);
    EXPECT_TRUE(shows("2000 words"));
}

TEST_F(HistoryAtTheScreen, goesBackFromAWordToAllBlocks)
{
    hasFinished(12);
    presses("h/Number 7");
    presses(escape);
    EXPECT_TRUE(shows("History  12 blocks"));
    EXPECT_TRUE(shows("▸ 2026-11-10"));
    presses("/Number 7\n");
    EXPECT_TRUE(shows("Esc all blocks"));
    presses(escape);
    EXPECT_TRUE(shows("History  12 blocks"));
    EXPECT_TRUE(shows("Esc back"));
    presses(escape);
    EXPECT_TRUE(shows("p plan a block"));
}

TEST_F(HistoryAtTheScreen, takesKeysAndPastedTextAsTheWordWhileOneIsTyped)
{
    hasFinished(2);
    presses("h/qd");
    presses(pasted("h\nq"));
    EXPECT_TRUE(shows("Search  qdh"));
    EXPECT_TRUE(shows("No block has \"qdh\" in its words."));
    EXPECT_FALSE(ui->isOver());
    EXPECT_EQ(person.state().blockHistory.size(), 2U);
}

TEST_F(HistoryAtTheScreen, deletesABlockAfterAQuestion)
{
    const TimeZone here("UTC");
    hasFinished(2);
    presses("hd");
    EXPECT_TRUE(shows("Delete the block of 2026-11-15 15:00, 2 sessions: Number 2?"));
    presses("n");
    EXPECT_EQ(person.state().blockHistory.size(), 2U);
    presses("dy");
    ASSERT_EQ(person.state().blockHistory.size(), 1U);
    EXPECT_EQ(person.state().blockHistory[0].outcomes.front().title, "Number 3");
    EXPECT_TRUE(shows("The block is deleted. Versions hold it for longer: the last ten"));
    EXPECT_TRUE(shows("--versions-too"));
    EXPECT_TRUE(shows("▸ 2026-11-14"));
}

TEST_F(HistoryAtTheScreen, leavesTheViewOfABlockThatIsDeleted)
{
    hasFinished(2);
    presses("h\ndy");
    EXPECT_EQ(person.state().blockHistory.size(), 1U);
    EXPECT_TRUE(shows("History  1 block"));
}

TEST_F(HistoryAtTheScreen, leavesTheViewOfASessionWhoseBlockIsDeletedElsewhere)
{
    hasFinished(2);
    presses("h\n");
    presses(downKey);
    presses(enter);
    QuillmereState state = person.state();
    state.blockHistory.erase(state.blockHistory.begin());
    state.updatedAt = moment + 1;
    person.has(state);
    ui->refresh();
    EXPECT_TRUE(shows("History  1 block"));
}

TEST_F(HistoryAtTheScreen, doesNotDeleteABlockThatIsGoneWhenTheAnswerComes)
{
    hasFinished(2);
    presses("hd");
    QuillmereState state = person.state();
    state.blockHistory.erase(state.blockHistory.begin());
    state.updatedAt = moment + 1;
    person.has(state);
    ui->refresh();
    EXPECT_FALSE(shows("Delete the block"));
    presses("y");
    EXPECT_EQ(person.state().blockHistory.size(), 1U);
}

TEST_F(HistoryAtTheScreen, offersNoDeletionOfTheBlockAtHand)
{
    hasFinished(1, stateIn(WorkflowState::focusing));
    presses("h");
    EXPECT_FALSE(shows("d delete"));
    presses("dy");
    EXPECT_TRUE(person.state().currentBlock);
    EXPECT_EQ(person.state().blockHistory.size(), 1U);
    presses(downKey);
    EXPECT_TRUE(shows("d delete"));
}

TEST_F(HistoryAtTheScreen, keepsTheChosenBlockWhenAnotherOneIsFinished)
{
    hasFinished(2);
    presses("h");
    presses(downKey);
    QuillmereState state = person.state();
    state.blockHistory.insert(state.blockHistory.begin(), finishedBlock(9, 0));
    state.updatedAt = moment + 1;
    person.has(state);
    ui->refresh();
    EXPECT_TRUE(shows("History  3 blocks"));
    EXPECT_TRUE(shows("▸ 2026-11-14"));
}

TEST_F(HistoryAtTheScreen, correctsASessionOfAFinishedBlock)
{
    hasFinished(2);
    presses("h");
    presses(downKey);
    presses(enter);
    presses(downKey);
    EXPECT_TRUE(shows("c correct the session"));
    presses("c");
    EXPECT_TRUE(shows("● Half"));
    presses("y");
    presses(save);
    EXPECT_TRUE(shows("The record is corrected."));
    EXPECT_TRUE(shows("▸ ✓ 1 of 3"));
    EXPECT_EQ(person.state().blockHistory[1].sessions[0].review->completion, CompletionResult::yes);
    EXPECT_EQ(person.state().blockHistory[0].sessions[0].review->completion, CompletionResult::half);
}

TEST_F(HistoryAtTheScreen, correctsASessionFromItsOwnView)
{
    hasFinished(1);
    presses("h\n");
    presses(downKey);
    presses(enter);
    presses("c");
    presses(Key{Key::Kind::tab});
    presses(" indeed");
    presses(save);
    EXPECT_EQ(person.state().blockHistory[0].sessions[0].review->noteworthyResult, "Result 1 indeed");
    EXPECT_TRUE(shows("Result 1 indeed"));
}

TEST_F(HistoryAtTheScreen, correctsTheReflectionAndTheWordsOfAFinishedBlock)
{
    hasFinished(1);
    presses("h\nc");
    EXPECT_TRUE(shows("Two chapters"));
    presses(" and a half");
    presses(save);
    EXPECT_EQ(person.state().blockHistory[0].reflection->outputProduced, "Two chapters and a half");
    EXPECT_TRUE(shows("The record is corrected."));
}

TEST_F(HistoryAtTheScreen, correctsABlockOfLongAgo)
{
    hasFinished(40);
    presses("h");
    presses(endKey);
    presses("\nc and a half");
    presses(save);
    EXPECT_EQ(person.state().blockHistory.at(39).reflection->outputProduced, "Two chapters and a half");
    presses(escape);
    presses(escape);
    EXPECT_TRUE(shows("p plan a block"));
}

TEST_F(HistoryAtTheScreen, goesBackFromACorrectionWithoutSavingIt)
{
    hasFinished(1);
    presses("h\nc");
    presses(" and a half");
    presses(escape);
    EXPECT_TRUE(shows("The block"));
    EXPECT_EQ(person.state().blockHistory[0].reflection, sampleReflection());
}

TEST_F(HistoryAtTheScreen, correctsNoSessionThatRunsOrWaitsForItsReview)
{
    for (const WorkflowState workflowState : {WorkflowState::focusing, WorkflowState::sessionReview}) {
        opens(stateIn(workflowState));
        presses(escape);
        presses("h\n");
        presses(downKey);
        EXPECT_TRUE(shows("Enter open"));
        EXPECT_FALSE(shows("c correct"));
        presses("c");
        EXPECT_FALSE(shows("^S"));
        presses(enter);
        EXPECT_FALSE(shows("c correct"));
    }
}

TEST_F(HistoryAtTheScreen, opensFromThePageOfKeysToo)
{
    hasFinished(1, stateIn(WorkflowState::sessionPlanning));
    presses("Half a plan");
    presses(escape);
    EXPECT_TRUE(shows("h       the blocks"));
    presses("h");
    EXPECT_TRUE(shows("History  2 blocks"));
    presses(escape);
    EXPECT_TRUE(shows("Half a plan"));
}

TEST_F(HistoryAtTheScreen, fitsIntoEveryWindow)
{
    hasFinished(30);
    for (const Size window : {smallWindow, Size{.rows = 15, .columns = 60}, usualWindow}) {
        ui->resize(window);
        presses("h");
        EXPECT_TRUE(shows("▸ 2026-11-15"));
        EXPECT_TRUE(shows("q quit"));
        presses(enter);
        EXPECT_TRUE(shows("The block"));
        EXPECT_TRUE(shows("q quit"));
        presses(escape);
        presses(escape);
    }
}

}  // namespace
}  // namespace quillmere::test
