// Instants in the local time zone.
#pragma once

#include "base/text/hours.hpp"

#include <quillmere/records/instant.hpp>

#include <ctime>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::base {

/// The local date and time, to the second.
std::tm localFields(Instant instant);

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

/// "16:00:05" on the local day of the present, "2026-11-15 16:00:05" on any other.
std::string localSecondSeenFrom(const SeenFrom& here, Instant instant);

/// Reads "2026-11-15 16:00" (or with a "T"), "16:00" (the next time at which the clock shows it) or "+1h30m"
/// (from now). A local time that occurs twice means the next of the two. Absent for any other text, for a
/// local time that the clocks skip, and outside the years of the files (0000 to 9999, UTC).
std::optional<Instant> instantFromLocalText(std::string_view text, Instant now);

/// Reads "2026-11-15 16:00" (or with a "T") and "16:00", with or without seconds, as a time that has passed:
/// the last time at which the clock showed it. A date that is yet to come is read as it stands. Absent for
/// any other text, and as `instantFromLocalText` is.
std::optional<Instant> pastInstantFromLocalText(std::string_view text, Instant now);

}  // namespace quillmere::base
