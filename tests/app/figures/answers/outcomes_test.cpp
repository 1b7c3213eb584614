// What a person worked on, counted a second time by texts.
#include "figures/answers/outcomes.hpp"

#include "figures_testing.hpp"
#include "lookback/day_text.hpp"

#include <map>
#include <string>
#include <vector>

#include "generated_history.hpp"
#include "minutes.hpp"

namespace quillmere::test {
namespace {

using figures::OutcomeFigures;
using figures::outcomesOf;
using figures::statistics;

/// By tables of the titles that the generated histories have.
std::string keyOf(const std::string& title)
{
    static const std::map<std::string, std::string> keys = {
        {"Draft chapter three", "draft"}, {"draft  chapter THREE", "draft"},
        {" Read the two papers", "read"}, {"Straßenkarte", "map"},
        {"STRASSENKARTE", "map"},         {"Talk", "talk"},
        {"Talk\tTalk", "talk talk"},      {"", ""}};
    return keys.at(title);
}

std::string keyOf(const WorkSession& session, const Block& block)
{
    std::string first;
    for (const Outcome& outcome : block.outcomes) {
        if (session.plan.blockOutcomeID == outcome.id && !outcome.title.empty()) {
            return keyOf(outcome.title);
        }
        first = first.empty() ? outcome.title : first;
    }
    return keyOf(first.empty() ? session.plan.intendedOutcome : first);
}

struct Sum {
    int minutes = 0;
    std::string completions;
    int sessions = 0;
    std::map<std::string, int> minutesByMonth;
};

TEST(Outcomes, haveTheTimeAndTheCompletionOfTheirSessions)
{
    const TimeZone here("Europe/Berlin");
    for (const unsigned seed : seeds) {
        SCOPED_TRACE(seed);
        const QuillmereState state = generatedHistory(seed, moment);
        std::map<std::string, Sum> sums;
        for (const Block& block : blocksIn(state)) {
            for (const WorkSession& each : block.sessions) {
                Sum& sum = sums[keyOf(each, block)];
                sum.minutes += minutesOf(each);
                sum.minutesByMonth[dateOf(each.startedAt, 0).substr(0, 7)] += minutesOf(each);
                sum.completions +=
                    each.review ? std::to_string(static_cast<int>(each.review->completion)) : "";
                ++sum.sessions;
            }
        }
        // A range without bounds before it: months, however short the history is.
        const Range range{.since = day("2025-12-01"), .until = std::nullopt};
        const LookBack look = statistics(state, range, day("2026-11-15"));
        const OutcomeFigures figures = outcomesOf(look);
        EXPECT_EQ(figures.outcomes.size(), sums.size());
        EXPECT_EQ(figures.trendUnit, Unit::month);
        EXPECT_EQ(figures.trendFirsts.size(), 12u);
        double before = 1e9;
        for (std::size_t index = 0; index < figures.outcomes.size(); ++index) {
            const figures::OutcomeWork& work = figures.outcomes[index];
            SCOPED_TRACE(work.title);
            Sum& sum = sums[keyOf(work.title)];
            EXPECT_EQ(work.workedSeconds, sum.minutes * 60);
            EXPECT_EQ(work.sessions, sum.sessions);
            for (const CompletionResult result : allCases<CompletionResult>()) {
                const auto number = static_cast<std::size_t>(result);
                EXPECT_EQ(work.completions[number], std::count(sum.completions.begin(), sum.completions.end(),
                                                               static_cast<char>('0' + number)));
            }
            EXPECT_LE(work.workedSeconds, before);
            before = work.workedSeconds;
            ASSERT_EQ(work.trend.size(), index < 5 ? 12u : 0u);
            for (std::size_t period = 0; period < work.trend.size(); ++period) {
                EXPECT_EQ(
                    work.trend[period],
                    60 * sum.minutesByMonth[lookback::labelOf(Unit::month, figures.trendFirsts[period])]);
            }
        }
    }
}

TEST(Outcomes, areNamedAsTheyWereWrittenLast)
{
    const TimeZone here("UTC");
    QuillmereState state = stateWith({session(moment, 60), session(moment + 600, 60)});
    for (WorkSession& each : state.blockHistory[0].sessions) {
        each.plan.blockOutcomeID.reset();
    }
    state.blockHistory[0].outcomes = {{.id = identifier(9), .title = " \n"}};
    state.blockHistory[0].sessions[0].plan.intendedOutcome = "outline";
    state.blockHistory[0].sessions[1].plan.intendedOutcome = " OUTLINE ";
    const OutcomeFigures figures = outcomesOf(statistics(state, {}, day("2026-11-15")));
    ASSERT_EQ(figures.outcomes.size(), 1u);
    EXPECT_EQ(figures.outcomes[0].title, " OUTLINE ");
}

TEST(Outcomes, showATrendOfDaysOfWeeksOrOfMonthsByTheLengthOfTheLookBack)
{
    const TimeZone here("UTC");
    const QuillmereState state = stateWith({session(moment, 60)});
    for (const auto& [since, unit] :
         {std::pair{"2026-11-02", Unit::day}, std::pair{"2026-11-01", Unit::week},
          std::pair{"2026-08-17", Unit::week}, std::pair{"2026-08-16", Unit::month}}) {
        const Range range{.since = day(since), .until = std::nullopt};
        EXPECT_EQ(outcomesOf(statistics(state, range, day("2026-11-15"))).trendUnit, unit) << since;
    }
}

TEST(Outcomes, haveATrendWithoutTheTimeBeforeIt)
{
    const TimeZone here("UTC");
    const QuillmereState state =
        stateWith({session(local("2024-11-15 10:00"), 600), session(local("2026-11-15 10:00"), 60)});
    const OutcomeFigures figures = outcomesOf(statistics(state, {}, day("2026-11-15")));
    ASSERT_EQ(figures.outcomes.size(), 1u);
    EXPECT_EQ(figures.outcomes[0].workedSeconds, 660);
    EXPECT_EQ(figures.outcomes[0].trend, (std::vector<double>{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 60}));
}

TEST(FoldedTitle, hasNoDifferencesOfCaseAndSpace)
{
    EXPECT_EQ(figures::foldedTitle(" \tThe  Two\nPapers "), "the two papers");
    EXPECT_EQ(figures::foldedTitle("STRASSE"), figures::foldedTitle("straße"));
    EXPECT_EQ(figures::foldedTitle(" "), "");
}

}  // namespace
}  // namespace quillmere::test
