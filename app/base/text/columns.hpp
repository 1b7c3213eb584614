// Texts within a number of terminal columns.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::base {

/// The columns that a sanitized text takes: 0 for combining marks, 2 for wide characters (Unicode Standard
/// Annex #11).
std::size_t columnsOf(std::string_view text);

/// Byte limit per column of a cut text, on average. Zero-width characters make a limit in columns no limit at
/// all. Readable text needs far less.
inline constexpr std::size_t mostBytesPerColumn = 16;

/// The text in at most `most` columns and `most * mostBytesPerColumn` bytes, cut with an ellipsis if
/// necessary. Never cuts within a grapheme cluster (Unicode Standard Annex #29), and always cuts before one
/// with dozens of combining marks.
std::string cutToColumns(std::string_view text, std::size_t most);

/// The same with a limit in bytes and none in columns.
std::string cutToBytes(std::string_view text, std::size_t most);

/// The text in lines of at most `most` columns, `most` being at least 1, broken where lines may break
/// (Unicode Standard Annex #14), and within a word only if it is longer than a line. Line breaks in the text
/// are kept.
std::vector<std::string> wrapped(std::string_view text, std::size_t most);

/// A text that a person or an agent wrote, sanitized, in such lines; its own line breaks stay.
std::vector<std::string> linesWithin(std::string_view text, std::size_t most);

}  // namespace quillmere::base
