// Amendments by keys and by commands, with slips, in a real terminal.
#include "base/text/local_time.hpp"

#include <cmath>

#include "screen/program_elsewhere.hpp"

namespace quillmere::test {
namespace {

class SteeringInATerminal : public ProgramElsewhere {
protected:
    /// A focus session that has run for ten minutes.
    void hasFocusedForTenMinutes() const
    {
        ASSERT_EQ(elsewhere({"plan", "--outcome", "Chapter", "--cycles", "3", "--start"}), 0);
        ASSERT_EQ(elsewhere({"focus", "--outcome", "Headings", "--energy", "4", "--morale", "3"}), 0);
        QuillmereState state = person.state();
        WorkSession& session = state.currentBlock->sessions.back();
        session.startedAt = Instant(std::floor((session.startedAt - 600).secondsSince1970()));
        person.has(state);
    }
    /// The time so many seconds after the start of the session, as a person types it.
    std::string timeOfSession(double seconds) const
    {
        const Instant time = person.state().currentSession()->startedAt + seconds;
        return base::localSecondSeenFrom(time, time);
    }
};

TEST_F(SteeringInATerminal, leavesAPlannedBlockWithKeys)
{
    const TerminalWindow window(person);
    window.runs("$Q");
    ASSERT_TRUE(window.shows("p plan a block"));
    window.presses("p");
    ASSERT_TRUE(window.shows("^S begin now"));
    window.types("Chapter");
    window.presses("Escape");
    ASSERT_TRUE(window.shows("What you typed stays a draft."));
    window.presses("n Escape");
    ASSERT_TRUE(window.shows("What you typed stays a draft."));
    window.presses("y");
    ASSERT_TRUE(window.shows("Planning is left."));
    window.presses("p");
    ASSERT_TRUE(window.shows("What you had written is back."));
    window.presses("C-s");
    ASSERT_TRUE(window.shows("^S start focus"));
    window.presses("Escape");
    ASSERT_TRUE(window.shows("drop the block"));
    window.presses("d");
    ASSERT_TRUE(window.shows("Drop the block?"));
    window.presses("n");
    ASSERT_TRUE(window.shows("^S start focus"));
    window.presses("Escape");
    ASSERT_TRUE(window.shows("drop the block"));
    window.presses("d y");
    ASSERT_TRUE(window.shows("The block is dropped."));
    ASSERT_EQ(elsewhere({"plan", "--outcome", "Later", "--at", "+1h"}), 0);
    ASSERT_TRUE(window.shows("e edit it"));
    window.presses("e");
    ASSERT_TRUE(window.shows("Esc leave it as it was"));
    window.presses("Escape");
    EXPECT_TRUE(window.shows("The scheduled block is as it was."));
    EXPECT_TRUE(person.state().currentBlock->plannedStart);
}

TEST_F(SteeringInATerminal, steersABlockWithKeys)
{
    hasFocusedForTenMinutes();
    const TerminalWindow window(person);
    window.runs("$Q");
    ASSERT_TRUE(window.shows("+ 5 min more"));
    window.presses("+");
    ASSERT_TRUE(window.shows("The session is longer now."));
    window.presses("-");
    ASSERT_TRUE(window.shows("The session is shorter now."));
    window.presses("l");
    ASSERT_TRUE(window.shows("By how much?"));
    window.types("soon");
    window.presses("Enter");
    ASSERT_TRUE(window.shows("Give a duration"));
    window.presses("C-u");
    window.types("-1m");
    window.presses("Enter");
    ASSERT_TRUE(window.shows("The session has another length now."));
    window.presses("w");
    ASSERT_TRUE(window.shows("When did the pause begin?"));
    window.types(timeOfSession(-60));
    window.presses("Enter");
    window.types(timeOfSession(120));
    window.presses("Enter");
    ASSERT_TRUE(window.shows("times: "));
    window.presses("Up C-u");
    window.types(timeOfSession(60));
    window.presses("C-s");
    ASSERT_TRUE(window.shows("A pause from "));
    EXPECT_EQ(person.state().currentSession()->accumulatedPausedSeconds, 60);
    window.presses("t");
    ASSERT_TRUE(window.shows("When did it end?"));
    window.types("noon");
    window.presses("Enter");
    ASSERT_TRUE(window.shows("\"noon\" is no local time"));
    window.presses("C-u");
    window.types(timeOfSession(300));
    window.presses("Enter");
    ASSERT_TRUE(window.shows("Was it completed?"));
    window.presses("Escape");
    ASSERT_TRUE(window.shows("go on for 5 min"));
    window.presses("+");
    ASSERT_TRUE(window.shows("The session goes on."));
    window.presses("u");
    ASSERT_TRUE(window.shows("Undo: "));
    window.presses("y");
    ASSERT_TRUE(window.shows("Was it completed?"));
    window.presses("y Tab Tab Tab Tab Right");
    ASSERT_TRUE(window.shows("^S save, finish the block"));
    window.presses("C-s");
    ASSERT_TRUE(window.shows("What was produced?"));
    window.presses("Escape");
    ASSERT_TRUE(window.shows("change the block"));
    window.presses("c");
    ASSERT_TRUE(window.shows("How many focus sessions?"));
    window.presses("BTab C-u");
    window.types("1");
    window.presses("Enter");
    ASSERT_TRUE(window.shows("Possible: 2 to 1000"));
    window.presses("C-u");
    window.types("5");
    window.presses("Enter");
    ASSERT_TRUE(window.shows("The block is changed."));
    ASSERT_TRUE(comesTo(WorkflowState::sessionPlanning));
    window.presses("Escape");
    ASSERT_TRUE(window.shows("correct the last session"));
    window.presses("k");
    ASSERT_TRUE(window.shows("Did it end earlier?"));
    window.presses("Tab");
    window.types("Four stand");
    window.presses("C-s");
    ASSERT_TRUE(window.shows("The record is corrected."));
    EXPECT_EQ(person.state().currentBlock->sessions[0].review->noteworthyResult, "Four stand");
    window.presses("Escape");
    ASSERT_TRUE(window.shows("finish the block"));
    window.presses("f y");
    ASSERT_TRUE(comesTo(WorkflowState::blockReview));
}

TEST_F(SteeringInATerminal, resetsWithAKey)
{
    person.has(stateIn(WorkflowState::complete));
    const TerminalWindow window(person);
    window.runs("$Q");
    ASSERT_TRUE(window.shows("x reset the work"));
    window.presses("x");
    ASSERT_TRUE(window.shows("No step leads on from here. Reset the work?"));
    window.presses("n x y");
    EXPECT_TRUE(comesTo(WorkflowState::idle));
}

TEST_F(SteeringInATerminal, steersABlockWithCommands)
{
    hasFocusedForTenMinutes();
    const TerminalWindow window(person);
    const auto runs = [&](const std::string& line, const std::string& shown) {
        window.runs("clear; $Q " + line);
        return window.shows(shown);
    };
    ASSERT_TRUE(runs("extend soon", "Give a duration"));
    ASSERT_TRUE(runs("extend 10m", "The session is longer now."));
    ASSERT_TRUE(runs("extend --by=-10m", "The session is shorter now."));
    ASSERT_TRUE(runs("away --from noon", "is no local time"));
    ASSERT_TRUE(runs("away --from " + timeOfSession(60) + " --to " + timeOfSession(120), "A pause from "));
    ASSERT_TRUE(runs("end --at " + timeOfSession(30), "Possible times"));
    ASSERT_TRUE(runs("end --at " + timeOfSession(300), "The focus session ended on "));
    ASSERT_TRUE(runs("undo --yes", "Undone: "));
    ASSERT_TRUE(runs("redo --yes", "Done again: "));
    ASSERT_TRUE(runs("extend 20m --as-pause", "The session goes on."));
    ASSERT_TRUE(runs("end", "The focus session has ended."));
    ASSERT_TRUE(runs("cancel", "This action is not available"));
    ASSERT_TRUE(runs("review --completion Yes --finish </dev/null", "No session follows"));
    ASSERT_TRUE(runs("change --cycles 1", "or reflect, which ends the block"));
    ASSERT_TRUE(runs("change --cycles 4", "The block is changed."));
    ASSERT_TRUE(runs("amend .7 --result Four", "has no session"));
    ASSERT_TRUE(runs("amend .1 --result Four", "The record is corrected."));
    ASSERT_TRUE(runs("finish", "No session follows"));
    ASSERT_TRUE(runs("reflect --lessons Doors </dev/null", "The block is finished."));
    window.runs("clear; $Q delete 1");
    ASSERT_TRUE(window.shows("Delete the block of"));
    window.runs("no");
    ASSERT_TRUE(window.shows("Nothing was changed."));
    window.runs("clear");
    ASSERT_TRUE(window.showsNoMore("Nothing was changed."));
    window.runs("$Q delete 1");
    ASSERT_TRUE(window.shows("Delete the block of"));
    window.runs("yes");
    ASSERT_TRUE(window.shows("The block is deleted."));
    ASSERT_TRUE(runs("plan --outcome Next --at +1h </dev/null", "Scheduled for "));
    ASSERT_TRUE(runs("edit --focus soon", "is no duration"));
    ASSERT_TRUE(runs("edit --focus 50m", "The scheduled block is changed."));
    ASSERT_TRUE(runs("cancel --yes", "The scheduled block is discarded."));
    person.has(stateIn(WorkflowState::complete));
    ASSERT_TRUE(runs("reset --yes", "The work is reset."));
    EXPECT_EQ(person.state().workflowState, WorkflowState::idle);
}

}  // namespace
}  // namespace quillmere::test
