#include "figures/answers/outcomes.hpp"

#include "base/text/blank.hpp"
#include "base/text/case_folding.hpp"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace quillmere::figures {
namespace {

constexpr std::string_view whitespace = " \t\n\v\f\r";

const std::string& workedTitleOf(const WorkSession& session, const Block& block)
{
    const Outcome* const served = block.outcomeServed(session.plan);
    if (served && !base::isBlank(served->title)) {
        return served->title;
    }
    const auto titled = std::find_if(block.outcomes.begin(), block.outcomes.end(),
                                     [](const Outcome& outcome) { return !base::isBlank(outcome.title); });
    return titled != block.outcomes.end() ? titled->title : session.plan.intendedOutcome;
}

void addWork(OutcomeWork& work, const EndedSession& ended)
{
    ++work.sessions;
    work.workedSeconds += ended.time ? ended.time->workedSeconds : 0;
    if (const auto& review = ended.session->review) {
        ++work.completions[static_cast<std::size_t>(review->completion)];
    }
}

/// The unit by which the trend has at most so many periods that they fit beside each other.
std::pair<Unit, std::vector<Period>> trendPeriods(const LookBack& look)
{
    constexpr std::size_t mostTrendDays = 14;
    constexpr std::size_t mostTrendWeeks = 13;
    constexpr std::size_t mostTrendMonths = 12;
    for (const auto& [unit, most] :
         {std::pair{Unit::day, mostTrendDays}, std::pair{Unit::week, mostTrendWeeks}}) {
        std::vector<Period> periods = lastPeriods(look, unit, most + 1);
        if (periods.size() <= most) {
            return {unit, std::move(periods)};
        }
    }
    return {Unit::month, lastPeriods(look, Unit::month, mostTrendMonths)};
}

using Keys = std::unordered_map<std::string, std::size_t>;

/// Adds the sessions of the outcomes with most time to their trends.
void addTrends(OutcomeFigures& figures, const std::vector<std::string>& keys, const LookBack& look)
{
    const std::size_t count = std::min(figures.outcomes.size(), OutcomeFigures::outcomesWithTrend);
    Keys places;
    for (std::size_t index = 0; index < count; ++index) {
        figures.outcomes[index].trend.assign(figures.trendFirsts.size(), 0);
        places.emplace(foldedTitle(figures.outcomes[index].title), index);
    }
    for (std::size_t index = 0; index < look.sessions.size(); ++index) {
        const EndedSession& ended = look.sessions[index];
        const auto place = places.find(keys[index]);
        const Day first = firstOf(figures.trendUnit, ended.day, look.habits.weekBegins);
        const auto period = std::lower_bound(figures.trendFirsts.begin(), figures.trendFirsts.end(), first);
        if (place != places.end() && ended.time && period != figures.trendFirsts.end() && *period == first) {
            figures.outcomes[place->second]
                .trend[static_cast<std::size_t>(period - figures.trendFirsts.begin())] +=
                ended.time->workedSeconds;
        }
    }
}

}  // namespace

std::string foldedTitle(std::string_view title)
{
    std::string words;
    for (std::size_t begin = title.find_first_not_of(whitespace); begin != std::string_view::npos;) {
        const std::size_t end = std::min(title.find_first_of(whitespace, begin), title.size());
        words.append(words.empty() ? "" : " ").append(title.substr(begin, end - begin));
        begin = title.find_first_not_of(whitespace, end);
    }
    return base::caseFolded(words);
}

OutcomeFigures outcomesOf(const LookBack& look)
{
    OutcomeFigures figures{.outcomes = {}, .trendUnit = Unit::day, .trendFirsts = {}};
    std::vector<std::string> keys;
    Keys places;
    for (const EndedSession& ended : look.sessions) {
        const std::string& title = workedTitleOf(*ended.session, *ended.block);
        keys.push_back(foldedTitle(title));
        const auto place = places.emplace(keys.back(), figures.outcomes.size()).first;
        if (place->second == figures.outcomes.size()) {
            figures.outcomes.emplace_back();
        }
        OutcomeWork& work = figures.outcomes[place->second];
        work.title = keys.back().empty() ? "" : title;
        addWork(work, ended);
    }
    std::stable_sort(figures.outcomes.begin(), figures.outcomes.end(),
                     [](const OutcomeWork& left, const OutcomeWork& right) {
                         return left.workedSeconds > right.workedSeconds;
                     });
    const auto [unit, periods] = trendPeriods(look);
    figures.trendUnit = unit;
    for (const Period& period : periods) {
        figures.trendFirsts.push_back(period.first);
    }
    addTrends(figures, keys, look);
    return figures;
}

}  // namespace quillmere::figures
