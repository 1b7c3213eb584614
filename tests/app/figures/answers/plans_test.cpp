// Whether plans came true, counted a second time from tables of texts.
#include "figures/answers/plans.hpp"

#include "figures_testing.hpp"

#include <map>
#include <string>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::Plans;
using figures::plansOf;
using figures::statistics;

Plans plansIn(const QuillmereState& state, const Range& range = {})
{
    return plansOf(statistics(state, range, day("2026-11-15")));
}

TEST(Plans, countSessionsAndTimeOfTheBlocksThatBeganInTheRange)
{
    const TimeZone here("Europe/Berlin");
    const std::string since = "2026-10-20";
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const QuillmereState state = generatedHistory(seed, moment);
        std::map<std::string, std::int64_t> counts;
        std::map<std::string, std::string> endings;
        for (const Block& block : blocksIn(state)) {
            if (dateOf(block.sessions.front().startedAt, 0) >= since) {
                const auto done = std::ssize(block.sessions);
                counts["planned"] += block.completedAt ? block.cycleCount : 0;
                counts["done"] += block.completedAt ? done : 0;
                endings[block.id.text()] = !block.completedAt        ? "running"
                                           : done < block.cycleCount ? "early"
                                                                     : "full";
            }
            for (const WorkSession& each : block.sessions) {
                const bool isKnown = each.endedAt >= each.startedAt;
                if (dateOf(each.startedAt, 0) >= since && isKnown) {
                    const int over = minutesOf(each) - static_cast<int>(each.plannedDurationSeconds / 60);
                    counts[over > 0 ? "longer" : over < 0 ? "shorter" : "same"] += 1;
                    counts[over > 0 ? "over" : "under"] += std::abs(over);
                }
            }
        }
        const Plans plans = plansIn(state, {.since = day(since), .until = std::nullopt});
        EXPECT_EQ(plans.plannedSessions, counts["planned"]);
        EXPECT_EQ(plans.doneSessions, counts["done"]);
        EXPECT_EQ(plans.longerSessions, counts["longer"]);
        EXPECT_EQ(plans.shorterSessions, counts["shorter"]);
        EXPECT_EQ(plans.overSeconds, static_cast<double>(counts["over"]) * 60);
        EXPECT_EQ(plans.underSeconds, static_cast<double>(counts["under"]) * 60);
        EXPECT_EQ(plans.blocks.size(), endings.size());
        std::int64_t early = 0;
        std::int64_t finished = 0;
        for (const auto& [identifier, ending] : endings) {
            early += ending == "early" ? 1 : 0;
            finished += ending == "running" ? 0 : 1;
        }
        EXPECT_EQ(plans.finishedEarly, early);
        EXPECT_EQ(plans.finishedBlocks, finished);
        for (const figures::BlockPlan& plan : plans.blocks) {
            EXPECT_EQ(plan.isFinishedEarly, endings[plan.block->id.text()] == "early");
        }
        EXPECT_GT(early, 0);
        EXPECT_GT(counts["longer"], 0);
        EXPECT_GT(counts["shorter"], 0);
    }
}

TEST(Plans, compareTheTimeOfABlockWithThePlanOfTheSameSessions)
{
    const TimeZone here("UTC");
    WorkSession unreviewed = session(moment + 7000, 1500);
    unreviewed.review.reset();
    const Plans plans =
        plansIn(stateWith({session(moment, 2400, 300), session(moment + 5000, -60), unreviewed}));
    ASSERT_EQ(plans.blocks.size(), 1u);
    EXPECT_EQ(plans.blocks[0].plannedSeconds, 3000);
    EXPECT_EQ(plans.blocks[0].workedSeconds, 3600);
    EXPECT_EQ(plans.blocks[0].doneSessions, 3);
    EXPECT_EQ(plans.blocks[0].completions, (figures::Completions{0, 2, 0}));
}

TEST(Plans, takeADifferenceOfSecondsForNone)
{
    const TimeZone here("UTC");
    const Plans plans = plansIn(stateWith({session(moment, 1559), session(moment + 2000, 1441)}));
    EXPECT_EQ(plans.longerSessions, 0);
    EXPECT_EQ(plans.shorterSessions, 0);
    EXPECT_EQ(plansIn(stateWith({session(moment, 1560)})).longerSessions, 1);
    EXPECT_EQ(plansIn(stateWith({session(moment, 1440)})).shorterSessions, 1);
}

TEST(Plans, ofABlockInWorkAreNotYetMissed)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.currentBlock = blockInWork(1, 2);
    const Plans plans = plansIn(state);
    ASSERT_EQ(plans.blocks.size(), 1u);
    EXPECT_FALSE(plans.blocks[0].isFinished);
    EXPECT_FALSE(plans.blocks[0].isFinishedEarly);
    EXPECT_EQ(plans.blocks[0].doneSessions, 1);
    EXPECT_EQ(plans.plannedSessions, 0);
}

}  // namespace
}  // namespace quillmere::test
