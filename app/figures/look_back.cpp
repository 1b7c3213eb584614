#include "figures/look_back.hpp"

#include "base/text/duration.hpp"

#include <algorithm>
#include <cmath>
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
    const Day start = firstOf(unit, firstChartDay(look));
    std::vector<Period> row;
    for (Day first = firstOf(unit, lastChartDay(look)); first >= start && row.size() < most;
         first = firstOf(unit, first - oneDay)) {
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

HeatMap heatMapOf(const LookBack& look, std::size_t weeks)
{
    const Day last = lastChartDay(look);
    const Day monday =
        firstOf(Unit::week, last) - std::chrono::weeks(static_cast<std::chrono::weeks::rep>(weeks) - 1);
    HeatMap map{.firstMonday = monday,
                .firstDay = std::max(monday, look.range.since.value_or(monday)),
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
