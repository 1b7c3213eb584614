// The sessions as a calendar (iCalendar, RFC 5545).
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// One event a session, in order of starting, in UTC, under the session's own identifier: a calendar that
/// reads a later export finds the events that it has, and by their dates those that have changed. A session
/// that did not end after it started has no end; one of the year 0, which calendars do not have, is left
/// out. Lines end with CR LF and have 75 octets at most.
std::string calendarOf(const figures::LookBack& look);

/// A text of a person as a value of type TEXT (3.3.11).
std::string calendarText(std::string_view text);

/// A content line, folded (3.1), with its line end; never within a character.
std::string calendarLine(std::string_view name, std::string_view value);

}  // namespace quillmere::lookback
