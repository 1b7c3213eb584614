// The sessions as a table for spreadsheets (RFC 4180).
#pragma once

#include "figures/look_back.hpp"

#include <string>
#include <string_view>

namespace quillmere::lookback {

/// One line a session, in order of starting, under a line of names. Times are UTC, `day` is the person's;
/// durations are whole seconds, rounded down, and empty where they are not known. Lines end with CR LF.
std::string csvOf(const figures::LookBack& look);

/// A text of a person as a cell, always in quotes. What a spreadsheet would calculate, because it begins with
/// =, +, -, @ (also in full width), gets an apostrophe in front, which spreadsheets take for "this is text":
/// at the beginning of the text, and behind semicolons, tabs and line ends, at which some of them begin
/// another cell whatever the quotes. Control characters other than tabs and line ends become U+FFFD.
std::string csvText(std::string_view text);

}  // namespace quillmere::lookback
