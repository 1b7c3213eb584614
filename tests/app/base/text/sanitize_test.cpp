// Texts before they are printed on a terminal.
#include "base/text/sanitize.hpp"

#include <gtest/gtest.h>
#include <quillmere/records/json/utf8.hpp>

#include <algorithm>
#include <iterator>
#include <string>

namespace quillmere::test {
namespace {

using base::isText;
using base::sanitized;
using base::sanitizedJson;
using base::sanitizedLines;

constexpr const char* replacement = "\uFFFD";

TEST(Sanitized, replacesEveryControlCharacterOfSevenBits)
{
    for (int code = 0; code < 0x80; ++code) {
        const std::string character(1, static_cast<char>(code));
        const bool isBlank = code == '\n' || code == '\t';
        const bool isControl = code < 0x20 || code == 0x7F;
        EXPECT_EQ(sanitized(character), isBlank ? " " : isControl ? replacement : character) << code;
    }
}

TEST(Sanitized, replacesEveryControlCharacterOfEightBits)
{
    for (int code = 0x80; code < 0xC0; ++code) {
        const std::string character = {'\xC2', static_cast<char>(code)};
        EXPECT_EQ(sanitized(character), code < 0xA0 ? replacement : character) << code;
    }
}

TEST(Sanitized, replacesIllFormedBytes)
{
    for (int code = 0x80; code < 0x100; ++code) {
        const std::string byte(1, static_cast<char>(code));
        EXPECT_EQ(sanitized("a" + byte + "b"), "a\uFFFDb") << code;
    }
}

struct Range {
    unsigned first;
    unsigned last;
};

// Directional marks, embeddings, overrides and isolates, and separators of lines and paragraphs.
constexpr Range replaced[] = {{0x061C, 0x061C}, {0x200E, 0x200F}, {0x2028, 0x202E}, {0x2066, 0x2069}};

TEST(Sanitized, replacesDirectionalCharactersAndSeparators)
{
    for (unsigned code = 0x0600; code < 0x2100; ++code) {
        std::string character;
        json::appendUtf8(character, code);
        const bool isReplaced =
            std::any_of(std::begin(replaced), std::end(replaced),
                        [&](const Range& range) { return code >= range.first && code <= range.last; });
        EXPECT_EQ(sanitized(character), isReplaced ? replacement : character) << code;
    }
}

struct Pair {
    const char* text;
    const char* sanitized;
};

constexpr Pair pairs[] = {
    {"", ""},
    {"plain", "plain"},
    {"äöü €漢字 🙂 e\u0301", "äöü €漢字 🙂 e\u0301"},
    {"one\ntwo\tthree", "one two three"},
    {"\x1b[31mred\x1b[0m", "\uFFFD[31mred\uFFFD[0m"},
    {"\x1b]0;title\x07", "\uFFFD]0;title\uFFFD"},
    {"one\r\ntwo\n\r\nthree\r", "one two  three\uFFFD"},
    {"over\rwritten", "over\uFFFDwritten"},
    {"\xC2\x9B"
     "31m",
     "\uFFFD31m"},
    // A byte that is a control character in Latin-1, and its overlong forms in UTF-8.
    {"\x9B"
     "31m",
     "\uFFFD31m"},
    {"\xC1\x9B", "\uFFFD\uFFFD"},
    {"\xE0\x82\x9B", "\uFFFD\uFFFD\uFFFD"},
    {"\xC0\x9B", "\uFFFD\uFFFD"},
    // A lead byte must not swallow the escape that follows it.
    {"\xE2\x1b[2J", "\uFFFD\uFFFD[2J"},
    {"\xF0\x9F\x1b[2J", "\uFFFD\uFFFD[2J"},
    {"\uFFFD", "\uFFFD"},
};

TEST(Sanitized, keepsTextAndReplacesControlSequences)
{
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(testing::PrintToString(pair.text));
        EXPECT_EQ(sanitized(pair.text), pair.sanitized);
        EXPECT_EQ(sanitized(sanitized(pair.text)), pair.sanitized);
    }
}

TEST(SanitizedLines, keepsLineBreaksAndTabs)
{
    EXPECT_EQ(sanitizedLines("one\r\ntwo\n\tthree\rfour"), "one\r\ntwo\n\tthree\rfour");
}

TEST(SanitizedLines, replacesTheSameCharactersAsSanitizedOtherwise)
{
    for (unsigned code = 0; code < 0x2100; ++code) {
        std::string character;
        json::appendUtf8(character, code);
        if (code != '\t' && code != '\n' && code != '\r') {
            EXPECT_EQ(sanitizedLines(character), sanitized(character)) << code;
        }
    }
    EXPECT_EQ(sanitizedLines("a\x9Bz"), "a\uFFFDz");
}

TEST(SanitizedJson, escapesControlCharactersThatJsonAllows)
{
    EXPECT_EQ(sanitizedJson("{\n  \"a\" : \"\x7F\xC2\x80\xC2\x9B\xC2\x9F\xC2\xA0é\"\n}"),
              "{\n  \"a\" : \"\\u007f\\u0080\\u009b\\u009f\xC2\xA0é\"\n}");
}

TEST(SanitizedJson, escapesDirectionalCharactersAndSeparators)
{
    EXPECT_EQ(sanitizedJson("\"\u061C\u200E\u2028\u202E\u2069\u2070€🙂\""),
              "\"\\u061c\\u200e\\u2028\\u202e\\u2069\u2070€🙂\"");
}

constexpr const char* texts[] = {"", "plain", "äöü", "\u07FF", "\uFFFF", "\U0010FFFF", "\x1b\x7F"};
constexpr const char* noTexts[] = {
    "\x80",     "\xC3",  "\xC3(", "\xC0\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF5\x80\x80\x80",
    "\xE2\x82", "a\xFF", "\xFFz", "\xFE"};

TEST(IsText, isWellFormedUtf8)
{
    for (const char* text : texts) {
        EXPECT_TRUE(isText(text)) << testing::PrintToString(text);
    }
    for (const char* text : noTexts) {
        EXPECT_FALSE(isText(text)) << testing::PrintToString(text);
    }
}

}  // namespace
}  // namespace quillmere::test
