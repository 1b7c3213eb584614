#include "figures/local_day.hpp"

#include "base/text/local_time.hpp"

#include <cstdint>

namespace quillmere::figures {
namespace {

namespace chrono = std::chrono;

}  // namespace

Day firstOf(Unit unit, Day day, chrono::weekday weekBegins)
{
    switch (unit) {
        case Unit::day: break;
        case Unit::week: return day - (chrono::weekday(day) - weekBegins);
        case Unit::month: {
            const chrono::year_month_day date(day);
            return Day(chrono::local_days(date.year() / date.month() / 1));
        }
    }
    return day;
}

Day LocalCalendar::dayOf(Instant instant) const
{
    const std::tm fields = base::localFields(instant);
    const Day date = base::localDayOf(fields);
    return fields.tm_hour < beginsAtHour_ ? date - oneDay : date;
}

Instant LocalCalendar::startOf(Day day)
{
    const auto number = day.time_since_epoch().count();
    if (const auto known = starts_.find(number); known != starts_.end()) {
        return Instant(known->second);
    }
    return Instant(starts_.emplace(number, static_cast<double>(firstSecondOf(day))).first->second);
}

std::int64_t LocalCalendar::firstSecondOf(Day day) const
{
    const auto isReachedAt = [&](std::int64_t second) {
        return dayOf(Instant(static_cast<double>(second))) >= day;
    };
    const std::int64_t midnight = std::int64_t{day.time_since_epoch().count()} * 86'400;
    const std::int64_t beginInUtc = midnight + std::int64_t{beginsAtHour_} * 3600;
    const std::int64_t usual =
        beginInUtc - base::localFields(Instant(static_cast<double>(beginInUtc))).tm_gmtoff;
    if (isReachedAt(usual) && !isReachedAt(usual - 1)) {
        return usual;
    }
    // The clocks change around it. No zone is further from UTC. A binary search finds the first second:
    // mktime(3) cannot, because some midnights occur twice and some never.
    constexpr std::int64_t farthest = 25 * 3600;
    std::int64_t before = midnight - farthest;
    std::int64_t start = beginInUtc + farthest;
    while (start - before > 1) {
        const std::int64_t middle = before + (start - before) / 2;
        (isReachedAt(middle) ? start : before) = middle;
    }
    return start;
}

}  // namespace quillmere::figures
