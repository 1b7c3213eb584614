#include "figures/local_day.hpp"

#include <time.h>

#include <cmath>
#include <cstdint>

namespace quillmere::figures {
namespace {

namespace chrono = std::chrono;

Day dayOfSeconds(std::int64_t secondsSince1970)
{
    const auto seconds = static_cast<std::time_t>(secondsSince1970);
    std::tm fields{};
    ::localtime_r(&seconds, &fields);
    return Day(chrono::local_days(chrono::year(fields.tm_year + 1900) /
                                  chrono::month(static_cast<unsigned>(fields.tm_mon + 1)) /
                                  chrono::day(static_cast<unsigned>(fields.tm_mday))));
}

}  // namespace

Day firstOf(Unit unit, Day day)
{
    switch (unit) {
        case Unit::day: break;
        case Unit::week: return day - (chrono::weekday(day) - chrono::Monday);
        case Unit::month: {
            const chrono::year_month_day date(day);
            return Day(chrono::local_days(date.year() / date.month() / 1));
        }
    }
    return day;
}

Day LocalCalendar::dayOf(Instant instant)
{
    return dayOfSeconds(static_cast<std::int64_t>(std::floor(instant.secondsSince1970())));
}

Instant LocalCalendar::startOf(Day day)
{
    const auto number = day.time_since_epoch().count();
    if (const auto known = starts_.find(number); known != starts_.end()) {
        return Instant(known->second);
    }
    // No zone is further from UTC. A binary search for the first second of the day: mktime(3) does not do, as
    // some midnights occur twice and some never.
    constexpr std::int64_t farthest = 25 * 3600;
    const std::int64_t midnight = std::int64_t{number} * 86'400;
    std::int64_t before = midnight - farthest;
    std::int64_t start = midnight + farthest;
    while (start - before > 1) {
        const std::int64_t middle = before + (start - before) / 2;
        (dayOfSeconds(middle) >= day ? start : before) = middle;
    }
    return Instant(starts_.emplace(number, static_cast<double>(start)).first->second);
}

}  // namespace quillmere::figures
