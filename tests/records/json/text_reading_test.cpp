// Reading of texts.
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/outcome.hpp>

#include <gtest/gtest.h>

#include <random>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using namespace std::string_literals;

std::string titled(const std::string& insideQuotes)
{
    return R"({"id":"9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10","title":")" + insideQuotes + "\"}";
}

TEST(ReadText, resolvesEveryEscape)
{
    const struct {
        std::string_view inside;
        std::string text;
    } rows[] = {
        {R"()", ""},
        {R"(\")", "\""},
        {R"(\\)", "\\"},
        {R"(\/)", "/"},
        {R"(/)", "/"},
        {R"(\b\f\n\r\t)", "\b\f\n\r\t"},
        {R"(\\n)", "\\n"},
        {R"(\\\n)", "\\\n"},
        {R"(\\u0041)", "\\u0041"},
        {R"(\u0041\u00e9\u00E9)", "A\xC3\xA9\xC3\xA9"},
        {R"(\u0000)", "\0"s},
        {R"(a\u0000b)", "a\0b"s},
        {R"(\u001F\u007f)", "\x1F\x7F"},
        {R"(\u20ac\uFFFF)", "\xE2\x82\xAC\xEF\xBF\xBF"},
        {R"(\uD7FF\uE000)", "\xED\x9F\xBF\xEE\x80\x80"},
        {R"(\ud83d\ude00)", "\xF0\x9F\x98\x80"},
        {R"(\uD83D\uDE00)", "\xF0\x9F\x98\x80"},
        {R"(\uD800\uDC00\uDBFF\uDFFF)", "\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"},
        {R"(x\\\ud83d\ude00\\y)", "x\\\xF0\x9F\x98\x80\\y"},
        {R"(\\ud800)", "\\ud800"},
        {R"(\\\\udc00)", "\\\\udc00"},
        {"\xC3\xA9\xE2\x80\xA8\x7F", "\xC3\xA9\xE2\x80\xA8\x7F"},
        {"\xEF\xBB\xBF", "\xEF\xBB\xBF"},
    };
    for (const auto& [inside, text] : rows) {
        SCOPED_TRACE(inside);
        EXPECT_EQ(test::decoded<Outcome>(titled(std::string(inside))).title, text);
    }
}

TEST(ReadText, findsEscapesAtEveryPlaceOfTextsOfEveryLength)
{
    for (std::size_t before = 0; before <= 70; ++before) {
        for (const std::size_t after : {0U, 1U, 15U, 16U, 17U, 31U, 32U, 33U, 63U, 64U, 65U}) {
            const std::string front(before, 'a');
            const std::string back(after, 'z');
            ASSERT_EQ(test::decoded<Outcome>(titled(front + "\\n" + back)).title, front + '\n' + back);
            ASSERT_EQ(test::decoded<Outcome>(titled(front + "\\ud83d\\ude00" + back)).title,
                      front + "\xF0\x9F\x98\x80" + back);
        }
    }
}

TEST(ReadText, isTheWrittenTextForAnyText)
{
    std::mt19937_64 random(5);
    for (int count = 0; count < 5000; ++count) {
        std::string text;
        for (std::size_t left = random() % 60; left > 0; --left) {
            constexpr std::string_view characters[] = {{"\0", 1},
                                                       "\n",
                                                       "\x1B",
                                                       "\"",
                                                       "\\",
                                                       "/",
                                                       "a",
                                                       "Z",
                                                       " ",
                                                       "\x7F",
                                                       "\xC2\x80",
                                                       "\xC3\xA9",
                                                       "\xE2\x82\xAC",
                                                       "\xEF\xBF\xBD",
                                                       "\xF0\x9F\x98\x80",
                                                       "\xF4\x8F\xBF\xBF"};
            text += characters[random() % std::size(characters)];
        }
        const Outcome outcome{.id = test::identifier(1), .title = text};
        ASSERT_EQ(test::decoded<Outcome>(test::compactText(outcome)), outcome)
            << testing::PrintToString(text);
    }
}

TEST(ReadText, mayBeLong)
{
    const std::string plain(3'000'000, 'x');
    EXPECT_TRUE(test::decoded<Outcome>(titled(plain)).title == plain);
    std::string escaped;
    for (int count = 0; count < 300'000; ++count) {
        escaped += "\\u0041";
    }
    EXPECT_TRUE(test::decoded<Outcome>(titled(escaped)).title == std::string(300'000, 'A'));
}

TEST(ReadText, isNothingButAText)
{
    for (const std::string_view value : {"3", "true", "null", "[]", "{}", R"(["a"])"}) {
        SCOPED_TRACE(value);
        const auto error = test::decodingError<Outcome>(
            R"({"id":"9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10","title":)" + std::string(value) + "}");
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "title");
        EXPECT_EQ(error->expected(), "a text");
    }
}

/// Messages quote text of the file, so the quotes must be valid text and must have a limited length.
TEST(FoundValueInAnError, isQuotedUpToALengthAndCutBetweenCharacters)
{
    std::string umlauts;
    while (umlauts.size() < 500) {
        umlauts += "\xC3\xA4";
    }
    for (const std::string& front : {std::string(), "a"s, "ab"s, "abc"s}) {
        const std::string text = R"({"id":")" + front + umlauts + R"(","title":""})";
        const auto error = test::decodingError<Outcome>(text);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "id");
        EXPECT_LT(error->found().size(), 80U);
        EXPECT_EQ(error->found().substr(0, 10), ('"' + front + umlauts).substr(0, 10));
        // Only well-formed UTF-8 survives the round trip unchanged.
        const Outcome outcome{.id = test::identifier(1), .title = error->found()};
        EXPECT_EQ(test::decoded<Outcome>(test::compactText(outcome)), outcome);
    }
}

/// A refused text is read more than once; its escapes must not be replaced twice in the same buffer.
TEST(FoundValueInAnError, mayBeVeryLongAndFullOfEscapes)
{
    const std::string wrong = '"' + std::string(3'000'000, 'x') + "\\n\"";
    const auto error = test::decodingError<Outcome>(R"({"id":)" + wrong + R"(,"title":""})");
    ASSERT_TRUE(error);
    EXPECT_EQ(error->path(), "id");

    std::string list = R"({"id":)" + wrong;
    for (int count = 0; count < 20; ++count) {
        list += R"(,"id":)" + wrong;
    }
    const auto last = test::decodingError<Outcome>(list + R"(,"title":""})");
    ASSERT_TRUE(last);
    EXPECT_EQ(last->path(), "id");
}

}  // namespace
}  // namespace quillmere
