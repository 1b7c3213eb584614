#include "base/text/sanitize.hpp"

#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <array>

namespace quillmere::base {
namespace {

constexpr std::string_view replacement = "\uFFFD";

/// Calls `visit(bytes, isWellFormed)` for each character or ill-formed byte.
template <class Visit>
void forEachCharacter(std::string_view text, Visit visit)
{
    while (!text.empty()) {
        const json::Utf8Sequence sequence = json::frontSequence(text);
        visit(text.substr(0, sequence.length), sequence.wellFormed);
        text.remove_prefix(sequence.length);
    }
}

/// The code point of a well-formed character.
char32_t codePointOf(std::string_view character)
{
    // The bits of the first byte that count, by the number of bytes; each further byte gives six bits.
    constexpr std::array<unsigned char, 5> firstBits = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t code = static_cast<unsigned char>(character.front()) & firstBits[character.size()];
    for (const char byte : character.substr(1)) {
        code = code << 6 | (static_cast<unsigned char>(byte) & 0x3F);
    }
    return code;
}

struct Range {
    char32_t first;
    char32_t last;
};

/// Characters that control a terminal or the order of text.
constexpr auto controls = std::to_array<Range>({
    {0x0000, 0x001F},  // C0
    {0x007F, 0x009F},  // DEL, C1
    {0x061C, 0x061C},  // directional marks
    {0x200E, 0x200F},
    {0x2028, 0x202E},  // separators of lines and paragraphs, directional embeddings and overrides
    {0x2066, 0x2069},  // directional isolates
});

bool isControl(std::string_view character)
{
    const char32_t code = codePointOf(character);
    return std::any_of(controls.begin(), controls.end(),
                       [code](const Range& range) { return code >= range.first && code <= range.last; });
}

/// The character, or U+FFFD in its place.
std::string_view harmless(std::string_view character, bool wellFormed)
{
    return wellFormed && !isControl(character) ? character : replacement;
}

}  // namespace

std::string sanitized(std::string_view text)
{
    std::string result;
    forEachCharacter(text, [&](std::string_view character, bool wellFormed) {
        const std::size_t end = static_cast<std::size_t>(character.data() - text.data()) + character.size();
        if (character == "\r" && text.substr(end).starts_with('\n')) {
            return;  // the first half of a line break
        }
        if (character == "\n" || character == "\t") {
            result += ' ';
        } else {
            result += harmless(character, wellFormed);
        }
    });
    return result;
}

std::string sanitizedLines(std::string_view text)
{
    std::string result;
    forEachCharacter(text, [&](std::string_view character, bool wellFormed) {
        const bool isLayout = character == "\t" || character == "\n" || character == "\r";
        result += isLayout ? character : harmless(character, wellFormed);
    });
    return result;
}

std::string sanitizedJson(std::string_view json)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    forEachCharacter(json, [&](std::string_view character, bool wellFormed) {
        // C0 stays: JSON has none inside strings, and between them it is layout.
        if (wellFormed && isControl(character) && codePointOf(character) >= 0x7F) {
            const char32_t code = codePointOf(character);
            result.append("\\u").append({digits[code >> 12], digits[code >> 8 & 0x0F],
                                         digits[code >> 4 & 0x0F], digits[code & 0x0F]});
        } else {
            result += character;
        }
    });
    return result;
}

bool isText(std::string_view text)
{
    bool good = true;
    forEachCharacter(text, [&](std::string_view, bool wellFormed) { good = good && wellFormed; });
    return good;
}

}  // namespace quillmere::base
