// Texts in steps of what people see as one character (Unicode Standard Annex #29).
#pragma once

#include <cstddef>
#include <string_view>

namespace quillmere::screen {

/// Where the character that begins at `offset` ends; the end of the text at its end.
std::size_t afterCharacter(std::string_view text, std::size_t offset);

/// Where the character that ends at `offset` begins; 0 at the beginning.
std::size_t beforeCharacter(std::string_view text, std::size_t offset);

/// The columns that a piece of a text takes once it is sanitized.
std::size_t shownColumns(std::string_view text);

}  // namespace quillmere::screen
