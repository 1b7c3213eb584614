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
    const Day date = base::localDayOf(instant);
    return base::localFields(instant).tm_hour < beginsAtHour_ ? date - oneDay : date;
}

Instant LocalCalendar::startOf(Day day)
{
    const auto number = day.time_since_epoch().count();
    if (const auto known = starts_.find(number); known != starts_.end()) {
        return Instant(known->second);
    }
    // No zone is further from UTC. A binary search finds the first second of the day: mktime(3) cannot,
    // because some midnights occur twice and some never.
    constexpr std::int64_t farthest = 25 * 3600;
    const std::int64_t midnight = std::int64_t{number} * 86'400;
    std::int64_t before = midnight - farthest;
    std::int64_t start = midnight + farthest + std::int64_t{beginsAtHour_} * 3600;
    while (start - before > 1) {
        const std::int64_t middle = before + (start - before) / 2;
        (dayOf(Instant(static_cast<double>(middle))) >= day ? start : before) = middle;
    }
    return Instant(starts_.emplace(number, static_cast<double>(start)).first->second);
}

}  // namespace quillmere::figures
