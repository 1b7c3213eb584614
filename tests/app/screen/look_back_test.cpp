// The look back on the live screen.
#include "screen/screen_of_a_person.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

/// A session of this week and one of the month before.
QuillmereState stateWithTwoMonths()
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (const double daysBefore : {1.0, 30.0}) {
        Block block = blockInWork(2, 1);
        block.sessions[0].startedAt = moment - daysBefore * 86'400;
        block.sessions[0].endedAt = block.sessions[0].startedAt + 1500;
        block.sessions[0].review = sampleReview(1);
        block.completedAt = block.sessions[0].endedAt;
        state.blockHistory.push_back(block);
    }
    return state;
}

TEST_F(ScreenOfAPerson, looksBackAsTheReportDoes)
{
    opens(stateWithTwoMonths());
    ui->resize({.rows = 60, .columns = 80});
    presses("r");
    EXPECT_TRUE(shows("Look back  up to 2026-11-15"));
    EXPECT_TRUE(shows("in 2 sessions"));
    presses(escape);
    EXPECT_TRUE(shows("p plan a block"));
}

TEST_F(ScreenOfAPerson, looksBackOnTheWeekTheMonthOrAllTime)
{
    opens(stateWithTwoMonths());
    presses("r");
    EXPECT_TRUE(shows("w week"));
    EXPECT_FALSE(shows("a all"));
    presses("w");
    EXPECT_TRUE(shows("Look back  2026-11-09 to 2026-11-15"));
    EXPECT_FALSE(shows("in 2 sessions"));
    EXPECT_TRUE(shows("a all"));
    presses("m");
    EXPECT_TRUE(shows("Look back  2026-11-01 to 2026-11-30"));
    presses("a");
    EXPECT_TRUE(shows("Look back  up to 2026-11-15"));
}

TEST_F(ScreenOfAPerson, scrollsTheLookBackByRowsAndPagesAndToItsEnds)
{
    opens(stateWithTwoMonths());
    presses("r");
    EXPECT_TRUE(shows("PgDn scroll"));
    EXPECT_TRUE(shows("↓\n"));
    presses(downKey);
    EXPECT_FALSE(shows("Look back  up to"));
    EXPECT_TRUE(shows("in 2 sessions"));
    presses(upKey);
    EXPECT_TRUE(shows("Look back  up to"));
    presses(pageDown);
    EXPECT_FALSE(shows("in 2 sessions"));
    presses(endKey);
    EXPECT_FALSE(shows("↓\n"));
    presses(pageUp);
    EXPECT_TRUE(shows("↓\n"));
    presses(homeKey);
    EXPECT_TRUE(shows("Look back  up to"));
}

TEST_F(ScreenOfAPerson, saysThatThereIsNothingToLookBackOn)
{
    opens();
    presses("r");
    EXPECT_TRUE(shows("No focus session has ended yet."));
    EXPECT_FALSE(shows("PgDn scroll"));
}

}  // namespace
}  // namespace quillmere::test
