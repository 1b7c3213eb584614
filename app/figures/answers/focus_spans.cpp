#include "figures/answers/focus_spans.hpp"

#include <algorithm>

namespace quillmere::figures {
namespace {

/// The last day of the day, week or month that begins on `first`.
Day lastOf(Unit unit, Day first)
{
    constexpr std::chrono::days longestMonth(31);
    switch (unit) {
        case Unit::day: return first;
        case Unit::week: return first + std::chrono::weeks(1) - oneDay;
        case Unit::month: break;
    }
    return firstOf(Unit::month, first + longestMonth) - oneDay;
}

double focusWithin(const LookBack& look, Day first, Day last)
{
    double seconds = 0;
    for (const Period& day : look.everyDay) {
        seconds += day.first >= first && day.first <= last ? day.tally.focusSeconds : 0;
    }
    return seconds;
}

std::optional<double> goalWithin(const Habits& habits, Day first, Day last)
{
    if (!habits.dailyGoalSeconds) {
        return std::nullopt;
    }
    double seconds = 0;
    for (Day day = first; day <= last; day += oneDay) {
        seconds += habits.isDayOff(day) ? 0 : *habits.dailyGoalSeconds;
    }
    return seconds;
}

/// The span of the calendar that `day` lies in.
FocusSpan spanAround(Day day, Unit unit, const LookBack& look)
{
    const std::chrono::weekday weekBegins = look.habits.weekBegins;
    const Day first = firstOf(unit, day, weekBegins);
    const Day last = lastOf(unit, first);
    const Day before = firstOf(unit, first - oneDay, weekBegins);
    const Day sameDayBefore = last <= look.today ? first - oneDay : before + (look.today - first);
    return {.first = first,
            .last = last,
            .focusSeconds = focusWithin(look, first, last),
            .goalSeconds = goalWithin(look.habits, first, last),
            .beforeSeconds = focusWithin(look, before, first - oneDay),
            .beforeByNowSeconds = focusWithin(look, before, std::min(sameDayBefore, first - oneDay))};
}

}  // namespace

FocusSpans focusSpansOf(const LookBack& look)
{
    const Day weekBegin = firstOf(Unit::week, look.today, look.habits.weekBegins);
    return {.today = spanAround(look.today, Unit::day, look),
            .thisWeek = spanAround(look.today, Unit::week, look),
            .lastWeek = spanAround(weekBegin - oneDay, Unit::week, look),
            .thisMonth = spanAround(look.today, Unit::month, look)};
}

}  // namespace quillmere::figures
