// Texts: every Unicode scalar value.
//
// One text holds a row of 256 characters, with up to 16 letters in front: the library processes texts in
// pieces of 16 bytes, so the position of a character may matter.
#include <quillmere/records/json/utf8.hpp>
#include <quillmere/records/outcome.hpp>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "proofs/support/figures.hpp"
#include "proofs/values/utf8_check.hpp"
#include "records/coding_helpers.hpp"

namespace quillmere::test {
namespace {

constexpr std::uint32_t endOfUnicode = 0x110000;
constexpr std::uint32_t rowLength = 256;
constexpr std::size_t steps = 17;
constexpr std::uint64_t scalarValues = 1'112'064;

/// The UTF-8 bytes of a character, by the definition.
std::string utf8(std::uint32_t codePoint)
{
    std::string text;
    const auto put = [&](std::uint32_t byte) { text += static_cast<char>(byte); };
    switch (utf8Length(codePoint)) {
        case 1: put(codePoint); break;
        case 2: put(0xC0 + codePoint / 0x40); break;
        case 3: put(0xE0 + codePoint / 0x1000); break;
        default: put(0xF0 + codePoint / 0x40000); break;
    }
    for (std::size_t left = utf8Length(codePoint); left > 1; --left) {
        put(0x80 + (codePoint >> (6 * (left - 2))) % 0x40);
    }
    return text;
}

/// One UTF-16 unit as an escape, in upper-case or lower-case digits.
std::string unitEscape(std::uint32_t unit, bool inCapitals)
{
    char text[8];
    std::snprintf(text, sizeof text, inCapitals ? "\\u%04X" : "\\u%04x", unit);
    return text;
}

/// A character as an escape, or two escapes beyond U+FFFF.
std::string escape(std::uint32_t codePoint, bool inCapitals)
{
    if (codePoint < 0x10000) {
        return unitEscape(codePoint, inCapitals);
    }
    const std::uint32_t beyond = codePoint - 0x10000;
    return unitEscape(0xD800 + beyond / 0x400, inCapitals) + unitEscape(0xDC00 + beyond % 0x400, !inCapitals);
}

/// A character as written to a file: itself, unless it is a quote, a backslash or a control character.
std::string spelling(std::uint32_t codePoint)
{
    switch (codePoint) {
        case '"': return "\\\"";
        case '\\': return "\\\\";
        case '\b': return "\\b";
        case '\f': return "\\f";
        case '\n': return "\\n";
        case '\r': return "\\r";
        case '\t': return "\\t";
        default: return codePoint < ' ' ? unitEscape(codePoint, false) : utf8(codePoint);
    }
}

std::string fileWith(const std::string& inside)
{
    static const std::string id = Identifier(Identifier::Octets{}).text();
    return "{\"id\":\"" + id + "\",\"title\":\"" + inside + "\"}";
}

std::string written(const std::string& title)
{
    return compactText(Outcome{Identifier(Identifier::Octets{}), title});
}

/// Some characters in all their spellings.
struct Row {
    std::string text;
    std::string spelled;
    std::string escaped;
    std::uint64_t count = 0;

    void add(std::uint32_t codePoint)
    {
        text += utf8(codePoint);
        spelled += spelling(codePoint);
        escaped += escape(codePoint, codePoint % 2 == 0);
        ++count;
    }

    bool survives() const
    {
        const std::string file = fileWith(spelled);
        return isUtf8(text) && written(text) == file && decoded<Outcome>(file).title == text &&
               decoded<Outcome>(fileWith(escaped)).title == text;
    }
};

Row row(std::uint32_t first, std::uint32_t length, std::size_t lettersInFront)
{
    const std::string letters(lettersInFront, 'x');
    Row row{letters, letters, letters};
    for (std::uint32_t codePoint = first; codePoint < first + length; ++codePoint) {
        if (isScalarValue(codePoint)) {
            row.add(codePoint);
        }
    }
    return row;
}

TEST(EveryCharacter, isWrittenAndReadAsItself)
{
    const std::size_t stepsPerRow = amount(1, steps);
    // The short form tests every row up to the end of the kana, then every ninth, and the rows next to the
    // surrogates.
    const auto isSeen = [](std::uint32_t first) {
        const bool isBesideSurrogates = first >= 0xD700 && first <= 0xE000;
        return inLongForm() || first < 0x3100 || isBesideSurrogates || first / rowLength % 9 == 0 ||
               first + rowLength == endOfUnicode;
    };
    std::uint64_t count = 0;
    for (std::uint32_t first = 0; first < endOfUnicode; first += rowLength) {
        if (!isSeen(first)) {
            continue;
        }
        for (std::size_t step = 0; step < stepsPerRow; ++step) {
            const Row characters = row(first, rowLength, (first / rowLength + step) % steps);
            ASSERT_TRUE(characters.survives()) << "in the row from " << first;
            count += step == 0 ? characters.count : 0;
        }
    }
    if (inLongForm()) {
        ASSERT_EQ(count, scalarValues);
    }
    EXPECT_GT(count, scalarValues / 10);
    reportFigure("Round trip", "Unicode scalar values, raw and as escapes", count);
}

TEST(EveryCharacter, isWrittenAndReadAsItselfAlone)
{
    // The short form tests all characters of one or two bytes, which include all escapes, and some of the
    // others.
    std::uint64_t count = 0;
    const std::uint32_t stride = inLongForm() ? 1 : 997;
    for (std::uint32_t codePoint = 0; codePoint < endOfUnicode; codePoint += codePoint < 0x800 ? 1 : stride) {
        if (isScalarValue(codePoint)) {
            ASSERT_TRUE(row(codePoint, 1, codePoint % steps).survives()) << codePoint;
            ASSERT_TRUE(row(codePoint, 1, 0).survives()) << codePoint;
            ++count;
        }
    }
    reportFigure("Round trip", "of these, each in a separate text", count);
}

TEST(EveryCharacter, isDecodedAndEncodedAsUtf8)
{
    const std::uint32_t stride = inLongForm() ? 1 : 7;
    for (std::uint32_t codePoint = 0; codePoint < endOfUnicode; codePoint += codePoint < 0x800 ? 1 : stride) {
        if (!isScalarValue(codePoint)) {
            continue;
        }
        std::string text;
        json::appendUtf8(text, codePoint);
        const json::Utf8Sequence front = json::frontSequence(text);
        if (text != utf8(codePoint) || !front.wellFormed || front.length != text.size()) {
            FAIL() << codePoint;
        }
    }
}

TEST(EverySurrogate, isRefusedAloneAndInTheWrongOrder)
{
    // Both ranges span 1,023 steps, a multiple of the short stride, so their first and last units are
    // included.
    const std::uint32_t stride = inLongForm() ? 1 : 11;
    for (std::uint32_t unit = 0xD800; unit < 0xE000; unit += unit % 0x400 == 0x3FF ? 1 : stride) {
        const std::string half = unitEscape(unit, true);
        for (const std::string& inside : {half, half + "x", half + "\\n", half + unitEscape('x', true),
                                          unitEscape(0xDC00, true) + half}) {
            ASSERT_TRUE(isMalformed(decodingError<Outcome>(fileWith(inside)))) << inside;
        }
        const bool isHigh = unit < 0xDC00;
        ASSERT_EQ(isMalformed(decodingError<Outcome>(fileWith(half + unitEscape(0xDFFF, false)))), !isHigh);
        ASSERT_EQ(isMalformed(decodingError<Outcome>(fileWith(unitEscape(0xDBFF, false) + half))), isHigh);
    }
}

}  // namespace
}  // namespace quillmere::test
