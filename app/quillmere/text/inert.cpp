#include "text/inert.hpp"

#include <quillmere/records/json/utf8.hpp>

namespace quillmere::app {
namespace {

constexpr std::string_view replacement = "\uFFFD";

/// Hands out the text character by character: the bytes, and whether they are a character.
template <class Visit>
void forEachCharacter(std::string_view text, Visit visit)
{
    while (!text.empty()) {
        const json::Utf8Sequence sequence = json::frontSequence(text);
        visit(text.substr(0, sequence.length), sequence.wellFormed);
        text.remove_prefix(sequence.length);
    }
}

bool isC0(std::string_view character) { return static_cast<unsigned char>(character.front()) < 0x20; }
bool isDelete(std::string_view character) { return character == "\x7F"; }

/// U+0080 to U+009F in UTF-8.
bool isC1(std::string_view character)
{
    return character.size() == 2 && character[0] == '\xC2' && static_cast<unsigned char>(character[1]) < 0xA0;
}

}  // namespace

std::string inert(std::string_view text)
{
    std::string result;
    forEachCharacter(text, [&](std::string_view character, bool wellFormed) {
        if (character == "\n" || character == "\t") {
            result += ' ';
        } else if (!wellFormed || isC0(character) || isDelete(character) || isC1(character)) {
            result += replacement;
        } else {
            result += character;
        }
    });
    return result;
}

std::string inertJson(std::string_view json)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    forEachCharacter(json, [&](std::string_view character, bool) {
        if (isDelete(character) || isC1(character)) {
            const auto code = static_cast<unsigned char>(character.back());
            result.append("\\u00").append({digits[code >> 4], digits[code & 0x0F]});
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

}  // namespace quillmere::app
