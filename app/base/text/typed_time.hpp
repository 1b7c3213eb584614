// Times as a person types them.
#pragma once

#include <quillmere/records/instant.hpp>

#include <optional>
#include <string_view>

namespace quillmere::base {

/// Reads a time of day, alone or after a day, or a delay. Words may be in any case.
///
/// A time of day is "9:30", "9am", "9:30 pm" or "14:20:30". A day is "today", "tomorrow", "yesterday", "mon",
/// "monday" or "2026-11-15" ("2026-11-15T09:00" too). A delay is "in 20m" or "+1h30m".
///
/// A time of day alone means the next time at which the clock shows it, a weekday the next one on which that
/// time is yet to come, today included. When clocks are set back, some times occur twice: the next of the two
/// is meant. When clocks are set forward, some times do not occur: where they skip an hour, 02:30 means
/// 03:30.
///
/// Absent for any other text, and outside the years of the files (0000 to 9999, UTC).
std::optional<Instant> instantFromLocalText(std::string_view text, Instant now);

/// The same for a time that has passed: the last time at which the clock showed it, the last such weekday,
/// the last of two. Any other day is read as it stands. Absent for a delay too.
std::optional<Instant> pastInstantFromLocalText(std::string_view text, Instant now);

// Examples of what these read, for messages.
inline constexpr std::string_view exampleTimes =
    "14:30, 9am, tomorrow 9:00, mon 14:00, 2026-11-15 09:00 or in 20m";
inline constexpr std::string_view examplePastTimes =
    "14:20, 2:20pm, 14:20:30, yesterday 17:00, mon 14:00 or 2026-11-15 14:20";

}  // namespace quillmere::base
