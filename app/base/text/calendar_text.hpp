// Days, months and weekdays of the calendar as text.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace quillmere::base {

/// "Sun".
std::string_view weekdayText(std::chrono::weekday weekday);

/// "Sunday".
std::string_view weekdayInFull(std::chrono::weekday weekday);

/// "Nov".
std::string_view monthText(std::chrono::month month);

/// Reads "2026-11-15". Absent for any other text, and for a day that the calendar does not have.
std::optional<std::chrono::local_days> dayFromText(std::string_view text);

/// Reads "2026-11", likewise.
std::optional<std::chrono::year_month> monthFromText(std::string_view text);

/// Reads "sunday" and "sun", in lower case.
std::optional<std::chrono::weekday> weekdayFromText(std::string_view text);

/// The number that these digits write. Absent without digits, for any other character, and for a number
/// beyond those of `int`.
std::optional<int> numberFromDigits(std::string_view digits);

}  // namespace quillmere::base
