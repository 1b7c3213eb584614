#include "agent/question_text.hpp"

#include "agent/attempt.hpp"

#include <unictype.h>
#include <unistr.h>
#include <uniwidth.h>

#include <algorithm>

namespace quillmere::agent {
namespace {

/// Calls `visit` for each code point of well-formed text, with its offset and its length in bytes.
template <class Visit>
void forEachCodePoint(std::string_view text, Visit visit)
{
    for (std::size_t at = 0; at < text.size();) {
        const auto* const bytes = reinterpret_cast<const uint8_t*>(text.data()) + at;
        ucs4_t code = 0;
        const auto length = static_cast<std::size_t>(u8_mbtouc(&code, bytes, text.size() - at));
        visit(code, at, length);
        at += length;
    }
}

std::string_view withoutSpaceAround(std::string_view text)
{
    std::size_t begin = text.size();
    std::size_t end = text.size();
    forEachCodePoint(text, [&](ucs4_t code, std::size_t at, std::size_t length) {
        if (!uc_is_property_white_space(code)) {
            begin = std::min(begin, at);
            end = at + length;
        }
    });
    return text.substr(begin, end - begin);
}

bool isForbiddenControl(ucs4_t code)
{
    return (code < 0x20 && code != '\n' && code != '\t') || (code >= 0x7F && code < 0xA0);
}

/// False for combining marks, white space, and characters that only change how others are shown.
bool canBeSeen(ucs4_t code)
{
    return uc_width(code, "UTF-8") > 0 && !uc_is_property_white_space(code) &&
           !uc_is_property_default_ignorable_code_point(code);
}

}  // namespace

std::string askable(std::string_view question)
{
    const std::string_view text = withoutSpaceAround(question);
    std::size_t count = 0;
    bool saysSomething = false;
    forEachCodePoint(text, [&](ucs4_t code, std::size_t, std::size_t) {
        if (isForbiddenControl(code)) {
            throw ToolRefusal("The question has a control character. Only line feeds and tabs are allowed.");
        }
        saysSomething = saysSomething || canBeSeen(code);
        ++count;
    });
    if (!saysSomething) {
        throw ToolRefusal("The question is empty. Say in a sentence or two what the person should decide.");
    }
    if (count > mostCharacters) {
        throw ToolRefusal("The question has " + std::to_string(count) + " characters, and " +
                          std::to_string(mostCharacters) + " are the most. Ask it in fewer words.");
    }
    return std::string(text);
}

}  // namespace quillmere::agent
