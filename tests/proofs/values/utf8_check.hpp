// An independent check of UTF-8: decodes each character by arithmetic and tests that it is a scalar value in
// its shortest form.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace quillmere::test {

/// The number of bytes of the shortest form of a code point.
constexpr std::size_t utf8Length(std::uint32_t codePoint)
{
    return codePoint < 0x80 ? 1 : codePoint < 0x800 ? 2 : codePoint < 0x10000 ? 3 : 4;
}

constexpr bool isScalarValue(std::uint32_t codePoint)
{
    return codePoint <= 0x10FFFF && (codePoint < 0xD800 || codePoint > 0xDFFF);
}

/// Whether `text` is well-formed UTF-8.
constexpr bool isUtf8(std::string_view text)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto byteAt = [&](std::size_t index) {
            return static_cast<std::uint32_t>(static_cast<unsigned char>(text[index]));
        };
        std::uint32_t codePoint = byteAt(at);
        std::size_t length = 1;
        if (codePoint >= 0x80) {
            // The first byte has as many leading one bits as the character has bytes; its other bits belong
            // to the code point.
            while (length < 5 && (codePoint & (0x80U >> length)) != 0) {
                ++length;
            }
            if (length < 2 || length > 4 || text.size() - at < length) {
                return false;
            }
            codePoint &= 0x7FU >> length;
            for (std::size_t index = 1; index < length; ++index) {
                const std::uint32_t byte = byteAt(at + index);
                if (byte / 64 != 2) {
                    return false;
                }
                codePoint = codePoint * 64 + byte % 64;
            }
        }
        if (!isScalarValue(codePoint) || utf8Length(codePoint) != length) {
            return false;
        }
        at += length;
    }
    return true;
}

}  // namespace quillmere::test
