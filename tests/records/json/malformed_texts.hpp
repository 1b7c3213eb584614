// Texts that are not JSON values, and unusual texts that are.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::test {

/// Texts that make a document malformed when they replace a value.
const std::vector<std::string>& malformedValues();

/// Malformed texts between the quotes of a string or a key.
const std::vector<std::string>& malformedStringContents();

/// Well-formed values that some parsers refuse.
const std::vector<std::string>& oddValues();

/// `open` and `close` around each other `depth` times.
std::string nested(std::string_view open, std::string_view close, std::size_t depth);

/// `text` repeated `count` times.
std::string repeated(std::string_view text, std::size_t count);

}  // namespace quillmere::test
