// Instants in the local time zone.
#pragma once

#include "base/text/hours.hpp"

#include <quillmere/records/instant.hpp>

#include <chrono>
#include <ctime>
#include <string>
#include <vector>

namespace quillmere::base {

/// The local date and time, to the second.
std::tm localFields(Instant instant);

/// The local day.
std::chrono::local_days localDayOf(Instant instant);
/// The day of these fields.
std::chrono::local_days localDayOf(const std::tm& fields);

/// The instants at which local clocks show this time, in order: two where they are set back over it. One when
/// they skip the time, which is then counted by the clocks as they were before: 02:30 means 03:30 where they
/// go forward by an hour.
std::vector<Instant> instantsOfLocalTime(std::chrono::local_seconds time);

/// "2026-11-15".
std::string localDayText(Instant instant);

/// "2026-11-15 16:00" or "2026-11-15 4:00 pm".
std::string localText(Instant instant, Hours hours = Hours::twentyFour);

/// "2026-11-15 16:00:05" or "2026-11-15 4:00:05 pm".
std::string localTextToTheSecond(Instant instant, Hours hours = Hours::twentyFour);

/// "16:00" or "4:00 pm".
std::string localClockText(Instant instant, Hours hours = Hours::twentyFour);

/// The present, and how a person reads times in it.
struct SeenFrom {
    SeenFrom(Instant present, Hours clock = Hours::twentyFour) : now(present), hours(clock) {}

    Instant now;
    Hours hours;
};

/// "16:00" on the local day of the present, "2026-11-15 16:00" on any other.
std::string localTextSeenFrom(const SeenFrom& here, Instant instant);

/// The same, but "Thu 16:00" within the six days before and after that day.
std::string localTextWithin(const SeenFrom& here, Instant instant);

/// "16:00:05" on the local day of the present, "2026-11-15 16:00:05" on any other.
std::string localSecondSeenFrom(const SeenFrom& here, Instant instant);

/// For a time that was typed in fewer words: "Sun 15 Nov 2026, 16:00". "…, 4:00 pm" with twelve hours. Where
/// the clocks are changed, says which of two times it is, or which time they skip.
std::string localTextInFull(Instant instant, Hours hours = Hours::twentyFour);

/// The same with seconds, if there are any: "Sun 15 Nov 2026, 16:00:05".
std::string localSecondInFull(Instant instant, Hours hours = Hours::twentyFour);

}  // namespace quillmere::base
