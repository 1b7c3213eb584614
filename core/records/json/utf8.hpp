// Well-formed UTF-8 (The Unicode Standard, table 3-7; RFC 3629).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmere::json {

/// U+FFFD, which stands for bytes that are no text.
inline constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// Appends a character. `codePoint` is at most U+10FFFF and no surrogate.
void appendUtf8(std::string& text, std::uint32_t codePoint);

/// What stands at the front of a text.
struct Utf8Sequence {
    std::size_t length;  ///< bytes of the character or, if ill-formed, of its longest valid beginning
    bool wellFormed;
};

/// Looks at the front of `text`, which must not be empty.
Utf8Sequence frontSequence(std::string_view text) noexcept;

}  // namespace quillmere::json
