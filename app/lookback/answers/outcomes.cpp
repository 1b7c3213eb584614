#include "figures/answers/outcomes.hpp"

#include "base/text/count.hpp"
#include "lookback/answers/questions.hpp"
#include "lookback/day_text.hpp"
#include "lookback/words.hpp"

#include <algorithm>
#include <string>
#include <utility>

namespace quillmere::lookback {
namespace {

constexpr std::size_t mostOutcomes = 10;

std::string outcomeName(const figures::OutcomeWork& work)
{
    return work.title.empty() ? "Without an outcome" : work.title;
}

/// "To 2026-11", which names the unit as well.
std::string trendName(figures::Unit unit, const figures::LookBack& look)
{
    const figures::Day last = look.range.until.value_or(look.today);
    return "To " + labelOf(unit, figures::firstOf(unit, last, look.habits.weekBegins));
}

/// Shares of the greatest period of all trends, so that rows compare.
std::vector<double> trendShares(const figures::OutcomeWork& work, double most)
{
    std::vector<double> shares;
    for (const double seconds : work.trend) {
        shares.push_back(most > 0 ? seconds / most : 0);
    }
    return shares;
}

double mostOfTrends(const figures::OutcomeFigures& figures)
{
    double most = 0;
    for (const figures::OutcomeWork& work : figures.outcomes) {
        for (const double seconds : work.trend) {
            most = std::max(most, seconds);
        }
    }
    return most;
}

std::string outcomesSentence(const figures::OutcomeFigures& figures, double allSeconds)
{
    const figures::OutcomeWork& first = figures.outcomes.front();
    const std::string reached =
        figures::total(first.completions) > 0 ? ", " + reachedText(first.completions) + " reached" : "";
    const std::string most = focusText(first.workedSeconds) + " (" +
                             shareText(first.workedSeconds, allSeconds) + " of the time)" + reached;
    if (first.title.empty()) {
        return "Most without an outcome: " + most;
    }
    return "Most on " + first.title + ": " + most + "; " +
           base::countText(std::ssize(figures.outcomes), "outcome") + " in all";
}

}  // namespace

Answer outcomesAnswer(const figures::LookBack& look)
{
    const figures::OutcomeFigures figures = figures::outcomesOf(look);
    Answer answer{.question = "What did I work on?", .inShort = "No session ended", .tables = {}};
    if (figures.outcomes.empty()) {
        return answer;
    }
    answer.inShort = outcomesSentence(figures, look.total.workedSeconds);
    AnswerTable table{.head = {"Outcome", "Worked", "Share", "Sessions", "Reached"},
                      .rows = {},
                      .barName = {},
                      .trendName = trendName(figures.trendUnit, look)};
    const double most = mostOfTrends(figures);
    for (std::size_t index = 0; index < std::min(mostOutcomes, figures.outcomes.size()); ++index) {
        const figures::OutcomeWork& work = figures.outcomes[index];
        table.rows.push_back({.cells = {outcomeName(work), focusText(work.workedSeconds),
                                        shareText(work.workedSeconds, look.total.workedSeconds),
                                        std::to_string(work.sessions), reachedText(work.completions)},
                              .share = 0,
                              .trend = trendShares(work, most)});
    }
    answer.tables.push_back(std::move(table));
    return answer;
}

}  // namespace quillmere::lookback
