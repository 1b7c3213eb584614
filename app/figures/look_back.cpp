#include "figures/look_back.hpp"

#include "base/text/duration.hpp"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace quillmere::figures {
namespace {

/// The last day that charts show: none in the future.
Day lastChartDay(const LookBack& look) { return std::min(look.range.until.value_or(look.today), look.today); }

Day firstChartDay(const LookBack& look)
{
    if (look.range.since) {
        return *look.range.since;
    }
    return look.days.empty() ? lastChartDay(look) : look.days.front().first;
}

/// The figures of the period that begins on `first`; null if it has none.
const Tally* tallyOf(const std::vector<Period>& periods, Day first)
{
    const auto place = std::lower_bound(periods.begin(), periods.end(), first,
                                        [](const Period& period, Day day) { return period.first < day; });
    return place != periods.end() && place->first == first ? &place->tally : nullptr;
}

}  // namespace

std::int64_t total(const Completions& completions)
{
    return std::accumulate(completions.begin(), completions.end(), std::int64_t{0});
}

void addTo(Completions& sum, const Completions& part)
{
    for (std::size_t index = 0; index < sum.size(); ++index) {
        sum[index] += part[index];
    }
}

void addTo(Ratings& sum, const Ratings& part)
{
    sum.count += part.count;
    sum.sum += part.sum;
}

double medianOf(std::vector<double> values)
{
    if (values.empty()) {
        return 0;
    }
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::optional<double> reachedShare(const Completions& completions)
{
    const std::int64_t all = total(completions);
    if (all == 0) {
        return std::nullopt;
    }
    const auto yes = static_cast<double>(completions[static_cast<std::size_t>(CompletionResult::yes)]);
    const auto half = static_cast<double>(completions[static_cast<std::size_t>(CompletionResult::half)]);
    return (yes + half / 2) / static_cast<double>(all);
}

std::optional<SessionTime> timeOf(const WorkSession& session)
{
    if (!session.endedAt || !(*session.endedAt >= session.startedAt)) {
        return std::nullopt;
    }
    const double elapsed = *session.endedAt - session.startedAt;
    const double paused = std::clamp(session.accumulatedPausedSeconds, 0.0, elapsed);
    if (!(elapsed - paused <= base::longestDuration)) {
        return std::nullopt;
    }
    return SessionTime{.workedSeconds = elapsed - paused, .pausedSeconds = paused};
}

const std::vector<Period>& LookBack::periods(Unit unit) const
{
    switch (unit) {
        case Unit::day: break;
        case Unit::week: return weeks;
        case Unit::month: return months;
    }
    return days;
}

std::vector<Period> lastPeriods(const LookBack& look, Unit unit, std::size_t most)
{
    const auto beginningOf = [&](Day day) { return firstOf(unit, day, look.habits.weekBegins); };
    const Day start = beginningOf(firstChartDay(look));
    std::vector<Period> row;
    for (Day first = beginningOf(lastChartDay(look)); first >= start && row.size() < most;
         first = beginningOf(first - oneDay)) {
        const Tally* const tally = tallyOf(look.periods(unit), first);
        row.push_back({.first = first, .tally = tally ? *tally : Tally{}});
    }
    std::reverse(row.begin(), row.end());
    return row;
}

double focusOn(const LookBack& look, Day day)
{
    const Tally* const tally = tallyOf(look.days, day);
    return tally ? tally->focusSeconds : 0;
}

std::optional<GoalFigures> goalOf(const LookBack& look)
{
    const std::optional<double>& goal = look.habits.dailyGoalSeconds;
    if (!goal) {
        return std::nullopt;
    }
    GoalFigures figures{.seconds = *goal, .days = 0, .reachedDays = 0, .todaySeconds = std::nullopt};
    if (look.range.contains(look.today)) {
        figures.todaySeconds = focusOn(look, look.today);
    }
    for (Day day = firstChartDay(look); day <= lastChartDay(look); day += oneDay) {
        const bool isReached = focusOn(look, day) >= *goal;
        const bool isOver = day != look.today;
        if (!look.habits.isDayOff(day) && (isReached || isOver)) {
            ++figures.days;
            figures.reachedDays += isReached ? 1 : 0;
        }
    }
    return figures;
}

HeatMap heatMapOf(const LookBack& look, std::size_t weeks)
{
    const Day last = lastChartDay(look);
    const Day first = firstOf(Unit::week, last, look.habits.weekBegins) -
                      std::chrono::weeks(static_cast<std::chrono::weeks::rep>(weeks) - 1);
    HeatMap map{.firstWeek = first,
                .firstDay = std::max(first, look.range.since.value_or(first)),
                .lastDay = last,
                .weeks = weeks,
                .mostSeconds = 0};
    for (Day day = map.firstDay; day <= last; day += oneDay) {
        map.mostSeconds = std::max(map.mostSeconds, focusOn(look, day));
    }
    return map;
}

std::optional<int> HeatMap::levelOf(Day day, double focusSeconds) const
{
    if (day < firstDay || day > lastDay) {
        return std::nullopt;
    }
    if (!(focusSeconds > 0)) {
        return 0;
    }
    return std::clamp(static_cast<int>(std::ceil(focusSeconds / mostSeconds * levels)), 1, levels);
}

}  // namespace quillmere::figures
