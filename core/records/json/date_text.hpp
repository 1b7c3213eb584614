// Instants as text: the internet date-time form of ISO 8601 (RFC 3339), whole seconds.
#pragma once

#include <quillmere/records/instant.hpp>

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmere::json {

inline constexpr std::size_t dateTextLength = 20;

/// Whether an instant can be written: it is finite and lies in the years 0000 to 9999.
bool hasDateText(Instant instant) noexcept;

/// Writes `YYYY-MM-DDThh:mm:ssZ` into `dateTextLength` characters, with the fraction of a second
/// dropped toward the past. `instant` must satisfy hasDateText.
void putDateText(char* destination, Instant instant) noexcept;

/// Reads `YYYY-MM-DDThh:mm:ss` followed by "Z" or an offset `±hh:mm`. Absent for any other text, for
/// a day that the calendar does not have, for a second 60, and for an instant that its offset moves out
/// of the years 0000 to 9999.
std::optional<Instant> instantFromDateText(std::string_view text) noexcept;

}  // namespace quillmere::json
