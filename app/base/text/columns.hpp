// How much room a text takes on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::base {

/// The columns that a text takes: none for marks that combine, two for wide characters (Unicode Standard
/// Annex #11). For sanitized text; control characters take none.
std::size_t columnsOf(std::string_view text);

/// What a column may come to in a text that is cut. Marks that combine and characters without a width take
/// no columns, so that columns alone are no bound; nothing that is meant to be read takes as much.
inline constexpr std::size_t mostBytesPerColumn = 16;

/// The text, or as much of its beginning as leaves room for an ellipsis, in at most `most` columns of
/// `mostBytesPerColumn` on average. What people see as one character is never cut in two (Unicode Standard
/// Annex #29); before one that has dozens of marks the text ends.
std::string cutToColumns(std::string_view text, std::size_t most);

/// The same in at most `most` bytes, however many columns these take.
std::string cutToBytes(std::string_view text, std::size_t most);

/// The text in lines of at most `most` columns, at least one, broken where lines may break (Unicode Standard
/// Annex #14), and within a word only when it is longer than a line. Line breaks in the text stay.
std::vector<std::string> wrapped(std::string_view text, std::size_t most);

}  // namespace quillmere::base
