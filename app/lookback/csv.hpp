// The sessions as a table for spreadsheets (RFC 4180).
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// A line of column names, then one line per session by their start. Times are UTC, `day` is local; durations
/// are whole seconds, rounded down, and empty if not known. Lines end with CR LF.
std::string csvOf(const figures::LookBack& look);

/// A cell with a text of the user, always in quotes. Text that a spreadsheet would take for a formula,
/// because it begins with =, +, - or @ (also in full width), gets an apostrophe in front, which marks it as
/// text: at the beginning, and after semicolons, tabs and line ends, at which some spreadsheets begin a new
/// cell even within quotes. Control characters other than tabs and line ends, and characters that change the
/// direction of text, become U+FFFD (base::sanitizedLines).
std::string csvText(std::string_view text);

}  // namespace quillmere::lookback
