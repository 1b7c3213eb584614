// Leaving the planning of a block, and dropping a block.
#include <functional>
#include <istream>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>

#include "refusal_testing.hpp"

namespace quillmere::test {
namespace {

/// Asked on a terminal.
Ending asksAndTypes(Person& person, const Words& words, const std::string& answers)
{
    person.isAsked = true;
    person.answers = answers;
    const Ending ending = person.types(words);
    person.isAsked = false;
    return ending;
}

/// A scheduled block that was taken back into planning, as on the screen.
Person personWhoEdits()
{
    Person person;
    QuillmereState state = stateWithScheduledBlock();
    state.workflowState = WorkflowState::blockPlanning;
    person.has(state);
    return person;
}

/// An answer to a question, before which something else happens.
class LateAnswer : public std::streambuf {
public:
    LateAnswer(std::string answer, std::function<void()> meanwhile)
        : answer_(std::move(answer)), meanwhile_(std::move(meanwhile))
    {
    }

protected:
    int_type underflow() override
    {
        if (!meanwhile_) {
            return traits_type::eof();
        }
        std::exchange(meanwhile_, nullptr)();
        setg(answer_.data(), answer_.data(), answer_.data() + answer_.size());
        return traits_type::to_int_type(answer_.front());
    }

private:
    std::string answer_;
    std::function<void()> meanwhile_;
};

void expectIdleWithoutABlock(const Person& person)
{
    const QuillmereState state = person.state();
    EXPECT_EQ(state.workflowState, WorkflowState::idle);
    EXPECT_FALSE(state.currentBlock);
    EXPECT_TRUE(state.blockHistory.empty());
    EXPECT_TRUE(filesAgree(person));
}

TEST(CancelOfPlanning, leavesItWithoutAQuestion)
{
    Person person;
    person.has(stateIn(WorkflowState::blockPlanning));
    const Ending ending = asksAndTypes(person, {"cancel"}, "");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("Planning is left.\n\n"));
    expectIdleWithoutABlock(person);
}

TEST(CancelOfEditing, leavesTheScheduledBlockAsItWas)
{
    const Person person = personWhoEdits();
    const Ending ending = person.types({"cancel"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(ending.out.starts_with("The scheduled block is as it was.\n\n"));
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(person.state().currentBlock, stateWithScheduledBlock().currentBlock);
}

TEST(CancelOfEditing, namesTheWaysWhenTheStartHasPassed)
{
    Person person = personWhoEdits();
    person.now = moment + 4000;
    expectRefusal(
        person, {"cancel"},
        "The start of the scheduled block has passed while it was edited. Possible: --start begins it "
        "now, --at TIME gives it another time, --drop drops it.");
}

TEST(CancelOfEditing, takesEachOfTheseWays)
{
    const TimeZone here("UTC");
    Person started = personWhoEdits();
    EXPECT_EQ(started.typesLater(4000, {"cancel", "--start"}).code, ExitCode::done);
    EXPECT_EQ(started.state().workflowState, WorkflowState::sessionPlanning);
    Person postponed = personWhoEdits();
    EXPECT_TRUE(postponed.typesLater(4000, {"cancel", "--at", "5pm"})
                    .out.starts_with("Scheduled for Sun 15 Nov 2026, 17:00.\n\n"));
    EXPECT_EQ(postponed.state().workflowState, WorkflowState::idle);
    EXPECT_EQ(postponed.state().currentBlock->plannedStart, moment + 7200);
    Person dropped = personWhoEdits();
    EXPECT_EQ(dropped.typesLater(4000, {"cancel", "--drop"}).code, ExitCode::done);
    expectIdleWithoutABlock(dropped);
}

TEST(CancelOfEditing, asksForAWayOnATerminal)
{
    const TimeZone here("UTC");
    Person person = personWhoEdits();
    person.now = moment + 4000;
    const Ending ending = asksAndTypes(person, {"cancel"}, "later\n15:60\n17:00\n");
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_TRUE(
        ending.err.starts_with("The start of the block has passed while it was edited. Start it now, at "
                               "another time, or drop it? (now, 14:30, drop) "));
    EXPECT_EQ(person.state().currentBlock->plannedStart, moment + 7200);
    Person started = personWhoEdits();
    started.now = moment + 4000;
    EXPECT_EQ(asksAndTypes(started, {"cancel"}, "now\n").code, ExitCode::done);
    EXPECT_EQ(started.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(CancelOfEditing, dropsTheBlockWhereThePersonSaysSo)
{
    Person person = personWhoEdits();
    person.now = moment + 4000;
    EXPECT_EQ(asksAndTypes(person, {"cancel"}, "drop\n").code, ExitCode::done);
    expectIdleWithoutABlock(person);
}

TEST(CancelOfEditing, keepsNoDraftOfABlockThatStays)
{
    const Person person = personWhoEdits();
    EXPECT_EQ(person.types({"cancel"}).code, ExitCode::done);
    EXPECT_EQ(person.types({"cancel", "--yes"}).code, ExitCode::done);
    const Person whoKeepsIt = personWhoEdits();
    EXPECT_EQ(whoKeepsIt.types({"cancel"}).code, ExitCode::done);
    whoKeepsIt.has(stateIn(WorkflowState::idle));
    EXPECT_EQ(person.types({"plan", "--draft", "--start"}).code, ExitCode::done);
    EXPECT_EQ(whoKeepsIt.types({"plan", "--draft", "--start"}).code, ExitCode::refused);
}

TEST(CancelOfEditing, takesNoOtherTimeThatIsNone)
{
    Person person = personWhoEdits();
    person.now = moment + 4000;
    expectRefusal(person, {"cancel", "--at", "noon"},
                  "--at: \"noon\" is no local time, such as 14:30, 9am, tomorrow 9:00, mon 14:00, 2026-11-15 "
                  "09:00 or in 20m.",
                  ExitCode::usage);
}

TEST(CancelOfABlock, asksBeforeItDropsIt)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    const auto before = pictureOf(person.directory());
    const Ending ending = asksAndTypes(person, {"cancel"}, "perhaps\nno\n");
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(
        ending.err,
        "Drop the block \"Chapter one\"? Its words stay a draft that plan offers. (yes, no) Say yes or no.\n"
        "Drop the block \"Chapter one\"? Its words stay a draft that plan offers. (yes, no) Nothing was "
        "changed.\n");
    EXPECT_EQ(pictureOf(person.directory()), before);
    EXPECT_EQ(asksAndTypes(person, {"cancel"}, "yes\n").code, ExitCode::done);
    expectIdleWithoutABlock(person);
}

TEST(CancelOfABlock, needsAYesWithoutATerminal)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    expectRefusal(person, {"cancel"},
                  "There is no terminal to confirm on: say --yes. The question is: Drop the block \"Chapter "
                  "one\"? Its words stay a draft that plan offers.",
                  ExitCode::usage);
    const Ending ending = person.types({"--json", "cancel", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(jsonAt("/done", ending.out), R"("The block is dropped.")");
    expectIdleWithoutABlock(person);
}

TEST(CancelOfABlock, dropsNothingWhenTheWorkHasMovedOnMeanwhile)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    LateAnswer answer("yes\n", [&] { person.has(stateIn(WorkflowState::focusing)); });
    std::istream in(&answer);
    std::ostringstream out;
    std::ostringstream err;
    base::Environment environment{
        .in = in,
        .out = out,
        .err = err,
        .clock = [&] { return person.now; },
        .inputIsTerminal = true,
        .outputIsTerminal = false,
        .stateHome = person.stateHome(),
    };
    EXPECT_EQ(cli::run({"--directory", person.directory().string(), "cancel"}, environment),
              ExitCode::refused);
    EXPECT_NE(err.str().find("Changed meanwhile: focus session 1 started. Nothing was cancelled."),
              std::string::npos)
        << err.str();
    EXPECT_EQ(person.state(), stateIn(WorkflowState::focusing));
}

TEST(CancelOfASchedule, asksOnATerminal)
{
    Person person;
    person.has(stateWithScheduledBlock());
    EXPECT_EQ(asksAndTypes(person, {"cancel"}, "no\n").code, ExitCode::refused);
    EXPECT_TRUE(person.state().currentBlock);
    EXPECT_EQ(asksAndTypes(person, {"cancel"}, "yes\n").code, ExitCode::done);
    expectIdleWithoutABlock(person);
}

TEST(CancelOfASchedule, asksNothingAfterAYes)
{
    Person person;
    person.has(stateWithScheduledBlock());
    EXPECT_EQ(asksAndTypes(person, {"cancel", "--yes"}, "").code, ExitCode::done);
    expectIdleWithoutABlock(person);
}

TEST(Cancel, asksNothingWhereThereIsNothingToDiscard)
{
    Person person;
    person.has(stateIn(WorkflowState::idle));
    const Ending ending = asksAndTypes(person, {"cancel"}, "");
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_TRUE(ending.err.starts_with("This action is not available")) << ending.err;
}

TEST(Cancel, isRefusedOnceASessionHasBegun)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const Ending ending = person.types({"cancel", "--yes"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_NE(ending.err.find("Possible: pause, end, change, extend, end --at, away."), std::string::npos)
        << ending.err;
}

TEST(DraftOfADroppedBlock, isOfferedByPlan)
{
    Person person;
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.currentBlock->focusDurationSeconds = 3000;
    person.has(state);
    person.types({"cancel", "--yes"});
    const Ending ending = asksAndTypes(person, {"plan"}, "yes\n\n\n\nAnother reason\n\n\n\n\n\n\n\n\n");
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_TRUE(
        ending.err.starts_with("Go on with the draft of a block, \"Chapter one\"? (yes, no) Enter takes"))
        << ending.err;
    EXPECT_NE(ending.err.find("What should come out of it? [Chapter one] And what else? [Chapter two] "),
              std::string::npos)
        << ending.err;
    const Block block = *person.state().currentBlock;
    ASSERT_EQ(block.outcomes.size(), 2u);
    EXPECT_EQ(block.outcomes[1].title, "Chapter two");
    EXPECT_EQ(block.whyValue, "Another reason");
    EXPECT_EQ(block.contextNotes, "Notes are in the blue folder");
    EXPECT_EQ(block.focusDurationSeconds, 3000);
    EXPECT_NE(block.id, state.currentBlock->id);
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(DraftOfADroppedBlock, isTakenOnce)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    person.types({"cancel", "--yes"});
    EXPECT_EQ(person.types({"plan", "--draft", "--start"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->whyValue, "The deadline is near");
    person.has(stateIn(WorkflowState::idle));
    expectRefusal(person, {"plan", "--draft", "--start"},
                  "There is no draft of a block. Possible: plan without --draft.");
}

TEST(DraftOfADroppedBlock, isLeftWhereThePersonDoesNotWantIt)
{
    Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    person.types({"cancel", "--yes"});
    EXPECT_EQ(asksAndTypes(person, {"plan"}, "no\nNew\n\n\n\n\n\n\n\n\n\n\n\n").code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->whyValue, "");
    EXPECT_EQ(person.state().currentBlock->outcomes[0].title, "New");
}

TEST(DraftOfADroppedBlock, isKeptOfADiscardedScheduleToo)
{
    const Person person;
    person.has(stateWithScheduledBlock());
    EXPECT_EQ(person.types({"cancel"}).code, ExitCode::done);
    EXPECT_EQ(person.types({"plan", "--draft", "--start"}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->whyValue, "The deadline is near");
    EXPECT_EQ(person.state().currentBlock->plannedStart, std::nullopt);
}

TEST(CancelOfABlock, saysWhenItsWordsWouldBeLost)
{
    // Drafts are never kept in the directory of the files.
    const Person person;
    const std::string directory = person.stateHome().string();
    StateStore(directory, StateStore::renameReplacing).save(stateIn(WorkflowState::sessionPlanning));
    const Ending ending = person.runs({"--directory", directory, "cancel"});
    EXPECT_NE(
        ending.err.find("Drop the block \"Chapter one\"? Its words are lost, since no drafts are kept: set "
                        "XDG_STATE_HOME, or HOME."),
        std::string::npos)
        << ending.err;
    EXPECT_EQ(person.runs({"--directory", directory, "cancel", "--yes"}).code, ExitCode::done);
}

TEST(DraftOfADroppedBlock, isWrittenBeforeTheBlockGoes)
{
    // Where it cannot be written, the block stays.
    const Person person;
    person.has(stateIn(WorkflowState::sessionPlanning));
    writeText(person.stateHome() / "quillmere", "no directory");
    const auto before = pictureOf(person.directory());
    EXPECT_EQ(person.types({"cancel", "--yes"}).code, ExitCode::fileError);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

}  // namespace
}  // namespace quillmere::test
