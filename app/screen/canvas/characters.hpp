// User-perceived characters of a text: grapheme clusters (Unicode Standard Annex #29).
#pragma once

#include <cstddef>
#include <string_view>

namespace quillmere::screen {

/// The end of the character that begins at `offset`; the size of the text at its end.
std::size_t afterCharacter(std::string_view text, std::size_t offset);

/// The beginning of the character that ends at `offset`; 0 at the beginning.
std::size_t beforeCharacter(std::string_view text, std::size_t offset);

/// The number of columns of a text after sanitizing.
std::size_t shownColumns(std::string_view text);

}  // namespace quillmere::screen
