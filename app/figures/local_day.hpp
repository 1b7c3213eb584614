// Days of the local calendar, and the weeks and months that they belong to.
#pragma once

#include <quillmere/records/instant.hpp>

#include <chrono>
#include <cstdint>
#include <unordered_map>

namespace quillmere::figures {

/// A day of the calendar, without a time zone.
using Day = std::chrono::local_days;
inline constexpr std::chrono::days oneDay(1);

/// Figures are summed up by these.
enum class Unit { day, week, month };

/// The first day of the day, week or month that contains `day`. Weeks begin on Monday (ISO 8601) unless
/// another day is given.
Day firstOf(Unit unit, Day day, std::chrono::weekday weekBegins = std::chrono::Monday);

/// The start of days in the local time zone. A day has 23 or 25 hours when the clocks change, and it starts
/// at 01:00 where they skip midnight.
class LocalCalendar {
public:
    /// Days that begin at this hour: time before it belongs to the day before.
    explicit LocalCalendar(int beginsAtHour = 0) : beginsAtHour_(beginsAtHour) {}

    Day dayOf(Instant instant) const;

    /// The first instant of a day, or of the next day if the zone skipped the whole day.
    Instant startOf(Day day);

    /// Divides the `seconds` that begin at `from` among their days: calls `visit(day, seconds)` in order.
    template <class Visit>
    void forEachDay(Instant from, double seconds, Visit visit)
    {
        const Instant end = from + seconds;
        for (Day day = dayOf(from); from < end; day += oneDay) {
            const Instant dayEnd = startOf(day + oneDay);
            const Instant partEnd = dayEnd < end ? dayEnd : end;
            if (partEnd > from) {
                visit(day, partEnd - from);
                from = partEnd;
            }
        }
    }

private:
    /// Counted since 1970.
    std::int64_t firstSecondOf(Day day) const;

    int beginsAtHour_;
    std::unordered_map<std::chrono::days::rep, double> starts_;  ///< cache of startOf, in seconds since 1970
};

}  // namespace quillmere::figures
