#include "figures/answers/best_times.hpp"

#include "base/text/local_time.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::figures {
namespace {

constexpr double secondsPerQuarter = 15 * 60;
constexpr double secondsPerHour = 3600;
constexpr double secondsPerDay = 24 * secondsPerHour;

class Division {
public:
    explicit Division(const LookBack& look) : look_(look), calendar_(look.habits.dayBeginsAtHour) {}

    void addFocus(const EndedSession& ended)
    {
        if (!ended.time) {
            return;
        }
        Instant from = ended.session->startedAt;
        calendar_.forEachDay(from, ended.time->workedSeconds, [&](Day day, double seconds) {
            if (look_.range.contains(day)) {
                times_.weekdays[std::chrono::weekday(day).c_encoding()].focusSeconds += seconds;
                addHours(day, from, seconds);
            }
            from = from + seconds;
        });
    }

    void addSession(const EndedSession& ended)
    {
        const auto hourOfStart =
            static_cast<std::size_t>(base::localFields(ended.session->startedAt).tm_hour);
        for (TimeSlot* const slot :
             {&times_.hours[hourOfStart], &times_.weekdays[std::chrono::weekday(ended.day).c_encoding()]}) {
            ++slot->sessions;
            if (const auto& review = ended.session->review) {
                ++slot->completions[static_cast<std::size_t>(review->completion)];
            }
        }
    }

    const BestTimes& times() const { return times_; }

private:
    /// Divides a part of a day among its hours.
    void addHours(Day day, Instant from, double seconds)
    {
        // A session may take months: its whole days need no walk through their quarters.
        const bool isWholeDay = seconds == secondsPerDay && calendar_.startOf(day) == from &&
                                calendar_.startOf(day + oneDay) == from + secondsPerDay;
        if (isWholeDay) {
            for (TimeSlot& slot : times_.hours) {
                slot.focusSeconds += secondsPerHour;
            }
            return;
        }
        const Instant end = from + seconds;
        while (from < end) {
            const std::tm local = base::localFields(from);
            const double now = from.secondsSince1970();
            const double partEnd = std::min((std::floor(now / secondsPerQuarter) + 1) * secondsPerQuarter,
                                            end.secondsSince1970());
            times_.hours[static_cast<std::size_t>(local.tm_hour)].focusSeconds += partEnd - now;
            from = Instant(partEnd);
        }
    }

    const LookBack& look_;
    LocalCalendar calendar_;
    BestTimes times_;
};

}  // namespace

BestTimes bestTimesOf(const LookBack& look)
{
    Division division(look);
    for (const EndedSession& ended : look.reachingIn) {
        division.addFocus(ended);
    }
    for (const EndedSession& ended : look.sessions) {
        division.addFocus(ended);
        division.addSession(ended);
    }
    return division.times();
}

std::optional<std::size_t> bestOf(std::span<const TimeSlot> slots)
{
    std::int64_t all = 0;
    for (const TimeSlot& slot : slots) {
        all += total(slot.completions);
    }
    const std::int64_t leastSessions = std::max<std::int64_t>(3, (all + 19) / 20);
    std::optional<std::size_t> best;
    double bestShare = 0;
    for (std::size_t index = 0; index < slots.size(); ++index) {
        const std::int64_t reviewed = total(slots[index].completions);
        if (reviewed < leastSessions) {
            continue;
        }
        const double share = reachedShare(slots[index].completions).value_or(0);
        if (!best || share > bestShare ||
            (share == bestShare && reviewed > total(slots[*best].completions))) {
            best = index;
            bestShare = share;
        }
    }
    return best;
}

}  // namespace quillmere::figures
