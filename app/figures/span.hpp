// Spans of days as a person types them.
#pragma once

#include "figures/look_back.hpp"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::figures {

/// Reads days that a person names, in any case of letters, as a range with both its ends: "today",
/// "yesterday"; "monday" or "mon", the last one, today included; "week", "last week", "month", "last month"
/// of the calendar; "7d", the seven days that end today; "2026-10" and "2026-10-05". Absent for any other
/// text.
std::optional<Range> spanFromText(std::string_view text, Day today,
                                  std::chrono::weekday firstOfWeek = std::chrono::Monday);

/// The spans that it reads by a name, then the weekdays and two numbers of days, as a person would type them.
std::vector<std::string> namedSpans();

/// The spans that it reads, in the words of messages.
inline constexpr std::string_view acceptedSpans =
    "day or span, such as today, yesterday, monday, week, last week, month, 7d, 2026-10 or 2026-10-05";

}  // namespace quillmere::figures
