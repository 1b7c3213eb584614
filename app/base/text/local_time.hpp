// Instants in the person's own time zone.
#pragma once

#include <quillmere/records/instant.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace quillmere::base {

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

/// The instant of "2026-11-15 16:00" (or with a "T"), of "16:00", which is the next time the clock
/// shows that, or of "+1h30m" from now. Of a local time that comes twice the next one is meant. Absent
/// for any other text, for a local time that the clocks skip, and outside the years that files can
/// name (0000 to 9999, UTC).
std::optional<Instant> instantFromLocalText(std::string_view text, Instant now);

}  // namespace quillmere::base
