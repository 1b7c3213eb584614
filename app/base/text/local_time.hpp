// Instants in the local time zone.
#pragma once

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

/// The instants at which local clocks show this time, in order: two where they are set back over it. One when
/// they skip the time, which is then counted by the clocks as they were before: 02:30 means 03:30 where they
/// go forward by an hour.
std::vector<Instant> instantsOfLocalTime(std::chrono::local_seconds time);

/// "2026-11-15".
std::string localDayText(Instant instant);

/// "2026-11-15 16:00".
std::string localText(Instant instant);

/// "2026-11-15 16:00:05".
std::string localTextToTheSecond(Instant instant);

/// "16:00".
std::string localClockText(Instant instant);

/// "16:00" on the local day of `now`, "2026-11-15 16:00" on any other.
std::string localTextSeenFrom(Instant now, Instant instant);

/// "16:00:05" on the local day of `now`, "2026-11-15 16:00:05" on any other.
std::string localSecondSeenFrom(Instant now, Instant instant);

/// For a time that was typed in fewer words: "Sun 15 Nov 2026, 16:00". Where the clocks are changed, says
/// which of two times it is, or which time they skip.
std::string localTextInFull(Instant instant);

/// The same with seconds, if there are any: "Sun 15 Nov 2026, 16:00:05".
std::string localSecondInFull(Instant instant);

}  // namespace quillmere::base
