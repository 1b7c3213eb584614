// The sessions as a calendar (iCalendar, RFC 5545).
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// One event per session, by their start, in UTC. Its UID is the identifier of the session, so that a
/// calendar that imports a later export updates its events instead of adding them again. A session that did
/// not end after it started has no end. Sessions of the year 0, which calendars do not have, are left out.
/// Lines end with CR LF and have at most 75 octets.
std::string calendarOf(const figures::LookBack& look);

/// A text of the user as a value of type TEXT (3.3.11). Control characters other than tabs and line ends, and
/// characters that change the direction of text, become U+FFFD (base::sanitizedLines).
std::string calendarText(std::string_view text);

/// A content line, folded between characters (3.1), with its line end.
std::string calendarLine(std::string_view name, std::string_view value);

}  // namespace quillmere::lookback
