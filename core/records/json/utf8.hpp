// Well-formed UTF-8 (The Unicode Standard, table 3-7; RFC 3629).
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillmere::json {

/// U+FFFD, which replaces ill-formed bytes.
inline constexpr std::string_view replacementCharacter = "\xEF\xBF\xBD";

/// Appends a character. `codePoint` must be at most U+10FFFF and not a surrogate.
void appendUtf8(std::string& text, std::uint32_t codePoint);

/// The character, or the ill-formed bytes, at the front of a text.
struct Utf8Sequence {
    std::size_t length;  ///< bytes of the character; if ill-formed, of the bytes that U+FFFD replaces
    bool wellFormed;
};

/// The first sequence of `text`, which must not be empty.
Utf8Sequence frontSequence(std::string_view text) noexcept;

}  // namespace quillmere::json
