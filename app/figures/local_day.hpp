// Days of the person's own calendar, and what they add up to.
#pragma once

#include <quillmere/records/instant.hpp>

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quillmere::figures {

/// A day of a calendar, wherever on earth it is lived.
using Day = std::chrono::local_days;
inline constexpr std::chrono::days oneDay(1);

/// What figures are summed up by. Weeks are those of ISO 8601: they begin on Monday.
enum class Unit { day, week, month };

/// The first day of the unit that `day` lies in.
Day firstOf(Unit unit, Day day);

/// "2026-11-15", "2026-W46", "2026-11". A week belongs to the year that has most of its days.
std::string labelOf(Unit unit, Day day);

/// The same where there is little room and the year is plain: "15 Nov", "W46", "Nov".
std::string shortLabelOf(Unit unit, Day day);

/// "Sun".
std::string_view weekdayText(Day day);

/// The day of "2026-11-15", "today", or "30d", which is thirty days before today. Absent for any other text,
/// and for a day that the calendar does not have.
std::optional<Day> dayFromText(std::string_view text, Day today);

/// Where days begin in the person's time zone. A day is as long as the clocks make it: 23 or 25 hours when
/// they change, and it begins at one where they skip midnight.
class LocalCalendar {
public:
    static Day dayOf(Instant instant);

    /// The first instant of a day; that of the next one when the zone skipped the whole day.
    Instant startOf(Day day);

    /// Hands the `seconds` from an instant on to `visit(day, seconds)`, each day its part, in order.
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
    std::unordered_map<std::chrono::days::rep, double> starts_;  ///< those asked for so far
};

}  // namespace quillmere::figures
