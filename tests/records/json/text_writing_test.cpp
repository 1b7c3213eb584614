// Texts in JSON: escapes, and ill-formed UTF-8.
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/records/outcome.hpp>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <random>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using namespace std::string_literals;

/// The text in a file, with its quotes.
std::string written(const std::string& text)
{
    const std::string whole = test::compactText(Outcome{.id = test::identifier(1), .title = text});
    const std::string before = R"({"id":"9F1C2A4E-0B7D-4C55-8E21-000000000001","title":)";
    EXPECT_EQ(whole.substr(0, before.size()), before);
    EXPECT_EQ(whole.back(), '}');
    return whole.substr(before.size(), whole.size() - before.size() - 1);
}

std::string titleReadBack(const std::string& text)
{
    return test::decoded<Outcome>(test::compactText(Outcome{.id = test::identifier(1), .title = text})).title;
}

TEST(WrittenText, escapesQuoteBackslashAndEveryControlCharacter)
{
    constexpr const char* expected[] = {
        "\\u0000", "\\u0001", "\\u0002", "\\u0003", "\\u0004", "\\u0005", "\\u0006", "\\u0007",
        "\\b",     "\\t",     "\\n",     "\\u000b", "\\f",     "\\r",     "\\u000e", "\\u000f",
        "\\u0010", "\\u0011", "\\u0012", "\\u0013", "\\u0014", "\\u0015", "\\u0016", "\\u0017",
        "\\u0018", "\\u0019", "\\u001a", "\\u001b", "\\u001c", "\\u001d", "\\u001e", "\\u001f",
    };
    for (std::size_t code = 0; code < 0x20; ++code) {
        SCOPED_TRACE(code);
        EXPECT_EQ(written(std::string(1, static_cast<char>(code))), '"' + std::string(expected[code]) + '"');
    }
    EXPECT_EQ(written("\""), R"("\"")");
    EXPECT_EQ(written("\\"), R"("\\")");
}

TEST(WrittenText, hasEveryOtherAsciiCharacterUnchangedSlashesIncluded)
{
    std::string text;
    for (char code = 0x20; code < 0x7F; ++code) {
        text += code == '"' || code == '\\' ? '/' : code;
    }
    text += '\x7F';
    EXPECT_EQ(written(text), '"' + text + '"');
    EXPECT_EQ(written("https://example.com/</script>"), "\"https://example.com/</script>\"");
}

TEST(WrittenText, leavesCharactersBeyondAsciiAsTheyAre)
{
    constexpr std::string_view texts[] = {
        "\xC2\x80",          // U+0080, a control character that needs no escape
        "\xC3\xA9",          // é
        "\xDF\xBF",          // the last of two bytes
        "\xE0\xA0\x80",      // the first of three
        "\xE2\x80\xA8",      // U+2028, a line separator
        "\xED\x9F\xBF",      // the last before the surrogates
        "\xEE\x80\x80",      // the first behind them
        "\xEF\xBB\xBF",      // a byte order mark
        "\xEF\xBF\xBD",      // U+FFFD itself
        "\xEF\xBF\xBF",      // U+FFFF, no character but well-formed
        "\xF0\x90\x80\x80",  // the first of four
        "\xF0\x9F\x98\x80",  // an emoji
        "\xF4\x8F\xBF\xBF",  // the last of all
    };
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(written(std::string(text)), '"' + std::string(text) + '"');
        EXPECT_EQ(titleReadBack(std::string(text)), text);
    }
}

struct IllFormed {
    std::string_view bytes;
    std::string_view expected;  // with ? for U+FFFD
};

// One replacement for each maximal part of an incomplete character, and one for each byte that cannot begin a
// character (The Unicode Standard, section 3.9, tables 3-8 to 3-11).
constexpr IllFormed illFormedTexts[] = {
    {"\x80", "?"},
    {"\xBF\xBF", "??"},
    {"\xC0\xAF", "??"},
    {"\xC1\xBF", "??"},
    {"\xC2", "?"},
    {"\xC2"
     "A",
     "?A"},
    {"\xC2\xC3\xA9", "?\xC3\xA9"},
    {"\xE0\x80\xAF", "???"},
    {"\xE0\x9F\xBF", "???"},
    {"\xE0\xA0", "?"},
    {"\xE0\xA0"
     "A",
     "?A"},
    {"\xE2\x82", "?"},
    {"\xE2\x82\xE2\x82\xAC", "?\xE2\x82\xAC"},
    {"\xE2"
     "\x28\xA1",
     "?(?"},
    {"\xED\xA0\x80", "???"},
    {"\xED\xBF\xBF", "???"},
    {"\xED\xA0\xBD\xED\xB8\x80", "??????"},
    {"\xF0\x80\x80\xAF", "????"},
    {"\xF0\x8F\xBF\xBF", "????"},
    {"\xF0\x90\x80", "?"},
    {"\xF0\x9F", "?"},
    {"\xF0\x9F\x98\xE2\x82\xAC", "?\xE2\x82\xAC"},
    {"\xF0\x9F\x98"
     "A",
     "?A"},
    {"\xF4\x90\x80\x80", "????"},
    {"\xF5\x80\x80\x80", "????"},
    {"\xF8\x88\x80\x80\x80", "?????"},
    {"\xFC\x84\x80\x80\x80\x80", "??????"},
    {"\xFE", "?"},
    {"\xFF\xFF", "??"},
    {"\xC0\xAF\xE0\x80\xBF\xF0\x81\x82\x41", "????????A"},
    {"\xED\xA0\x80\xED\xBF\xBF\xED\xAF\x41", "????????A"},
    {"\xF4\x91\x92\x93\xFF\x41\x80\xBF\x42", "?????A??B"},
    {"\xE1\x80\xE2\xF0\x91\x92\xF1\xBF\x41", "????A"},
};

std::string withReplacements(std::string_view text)
{
    std::string replaced;
    for (const char character : text) {
        replaced += character == '?' ? "\xEF\xBF\xBD" : std::string(1, character);
    }
    return replaced;
}

TEST(WrittenText, replacesEachMaximalIllFormedPartByOneReplacementCharacter)
{
    for (const auto& [bytes, expected] : illFormedTexts) {
        SCOPED_TRACE(testing::PrintToString(std::string(bytes)));
        EXPECT_EQ(written(std::string(bytes)), '"' + withReplacements(expected) + '"');
        EXPECT_EQ(titleReadBack(std::string(bytes)), withReplacements(expected));
    }
}

/// Texts are copied many characters at a time, so special characters are tested at every position.
TEST(WrittenText, escapesSpecialCharactersAtEveryPlaceOfTextsOfEveryLength)
{
    const struct {
        std::string text;
        std::string expected;
    } specials[] = {
        {"\"", "\\\""},
        {"\\", "\\\\"},
        {"\0"s, "\\u0000"},
        {"\x1F", "\\u001f"},
        {"\n\n", "\\n\\n"},
        {"\xC3\xA9", "\xC3\xA9"},
        {"\xF0\x9F\x98\x80", "\xF0\x9F\x98\x80"},
        {"\xFF", "\xEF\xBF\xBD"},
        {"\xE2\x82", "\xEF\xBF\xBD"},
    };
    for (const auto& [special, expected] : specials) {
        SCOPED_TRACE(expected);
        for (std::size_t before = 0; before <= 70; ++before) {
            for (const std::size_t after : {0U, 1U, 2U, 14U, 15U, 16U, 17U, 31U, 32U, 33U, 63U, 64U, 65U}) {
                const std::string front(before, 'a');
                const std::string back(after, '~');
                ASSERT_EQ(written(front + special + back), '"' + front + expected + back + '"')
                    << before << " before, " << after << " after";
            }
        }
    }
}

TEST(WrittenText, isTheSameAsAnotherWritersTextForAnyBytes)
{
    std::mt19937_64 random(20261115);
    // The bytes are chosen so that first bytes and continuation bytes are often adjacent.
    constexpr unsigned char frequent[] = {0x00, 0x1F, '"',  '\\', 'a',  0x7F, 0x80, 0x8F,
                                          0x90, 0x9F, 0xA0, 0xBF, 0xC1, 0xC2, 0xE0, 0xE1,
                                          0xED, 0xEF, 0xF0, 0xF1, 0xF4, 0xF5, 0xFF};
    for (int count = 0; count < 20'000; ++count) {
        std::string text(random() % 40, '\0');
        for (char& character : text) {
            character = static_cast<char>(random() % 4 == 0 ? random() % 256
                                                            : frequent[random() % std::size(frequent)]);
        }
        const std::string expected =
            nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        ASSERT_EQ(written(text), expected) << testing::PrintToString(text);
    }
}

TEST(WrittenText, hasAllOfALongTextOfAnyCharacters)
{
    const std::string pieces[] = {"a", "\x01", "\xC3\xA9", "\xFF", "plain words, then \"quoted\"\n"};
    for (const std::string& piece : pieces) {
        std::string text;
        while (text.size() < 300'000) {
            text += piece;
        }
        const std::string expected =
            nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
        EXPECT_TRUE(written(text) == expected) << testing::PrintToString(piece);
    }
}

}  // namespace
}  // namespace quillmere
