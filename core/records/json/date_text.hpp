// Instants as text: the internet date-time form of ISO 8601 (RFC 3339), whole seconds.
#pragma once

#include <quillmere/records/instant.hpp>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace quillmere::json {

inline constexpr std::size_t dateTextLength = 20;
using DateText = std::array<char, dateTextLength>;

/// `YYYY-MM-DDThh:mm:ssZ`, with the fraction of a second dropped toward the past. Absent when the
/// instant is not finite or lies outside the years 0000 to 9999.
std::optional<DateText> dateText(Instant instant) noexcept;

/// Reads `YYYY-MM-DDThh:mm:ss` followed by "Z" or an offset `±hh:mm`. Absent for any other text, for
/// a day that the calendar does not have, and for a second 60.
std::optional<Instant> instantFromDateText(std::string_view text) noexcept;

}  // namespace quillmere::json
