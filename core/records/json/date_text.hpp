// Instants as text: RFC 3339 (a profile of ISO 8601) with whole seconds.
#pragma once

#include <quillmere/records/instant.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::json {

inline constexpr std::size_t dateTextLength = 20;

/// Whether an instant can be written: it is finite and lies in the years 0000 to 9999.
bool hasDateText(Instant instant) noexcept;

/// Throws EncodingError unless the instant can be written.
void requireDateText(Instant instant);

/// The text of an instant as it stands in files: `2026-01-31T09:15:00Z`, with the fraction of a second
/// dropped toward the past. Throws EncodingError for an instant that cannot be written.
std::string dateText(Instant instant);

/// Writes the same text into `dateTextLength` characters. `instant` must satisfy hasDateText.
void putDateText(char* destination, Instant instant) noexcept;

/// Reads `YYYY-MM-DDThh:mm:ss` followed by "Z" or an offset `±hh:mm`. Absent for any other text, for a day
/// that does not exist, for the second 60, and for an instant that the offset moves out of the years 0000 to
/// 9999.
std::optional<Instant> instantFromDateText(std::string_view text) noexcept;

}  // namespace quillmere::json
