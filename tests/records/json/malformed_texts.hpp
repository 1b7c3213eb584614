// Texts that are no JSON values, and texts that are but look odd.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::test {

/// Each makes the document around it malformed wherever it takes the place of a value.
const std::vector<std::string>& malformedValues();

/// Insides of strings, keys included, that no string may have.
const std::vector<std::string>& malformedStringContents();

/// Each is a well-formed value, though many a reader stumbles over it.
const std::vector<std::string>& oddValues();

/// `open` and `close` around each other `depth` times.
std::string nested(std::string_view open, std::string_view close, std::size_t depth);

/// `text` so many times in a row.
std::string repeated(std::string_view text, std::size_t count);

}  // namespace quillmere::test
