// How much room a text takes on a terminal.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::app {

/// The columns that a text takes: none for marks that combine, two for wide characters (Unicode Standard
/// Annex #11). For inert text; control characters take none.
std::size_t columns(std::string_view text);

/// The text, or as much of its beginning as leaves room for an ellipsis, in at most `most` columns. What
/// people see as one character is never cut in two (Unicode Standard Annex #29).
std::string cutToColumns(std::string_view text, std::size_t most);

/// The text in lines of at most `most` columns, at least one, broken where lines may break (Unicode Standard
/// Annex #14), and within a word only when it is longer than a line. Line breaks in the text stay.
std::vector<std::string> wrapped(std::string_view text, std::size_t most);

}  // namespace quillmere::app
