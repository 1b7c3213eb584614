#include "screen/canvas/canvas.hpp"

#include "program_testing.hpp"
#include "screen/canvas/big_digits.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

constexpr const char* wide = "\u65E5\u672C";        // two characters of two columns
constexpr const char* combined = "e\u0301a\u0308";  // two of one, each with a mark

TEST(Canvas, writesATextAtAPlace)
{
    Canvas canvas({2, 10});
    EXPECT_EQ(canvas.write({1, 2}, "abc", {.bold = true}), 3U);
    EXPECT_EQ(canvas.text(), "\n  abc\n");
    EXPECT_TRUE(canvas.cell({1, 2}).look.bold);
    EXPECT_FALSE(canvas.cell({1, 5}).look.bold);
}

TEST(Canvas, cutsATextAtItsEdgeAndAtTheColumnsGiven)
{
    Canvas canvas({2, 6});
    canvas.write({0, 2}, "abcdef");
    canvas.write({1, 0}, "abcdef", {}, 4);
    EXPECT_EQ(canvas.text(), "  abc\u2026\nabc\u2026\n");
}

TEST(Canvas, leavesOutTextOutsideOfTheGrid)
{
    Canvas canvas({1, 4});
    EXPECT_EQ(canvas.write({1, 0}, "below"), 0U);
    EXPECT_EQ(canvas.write({0, 4}, "beside"), 0U);
    EXPECT_EQ(canvas.text(), "\n");
}

TEST(Canvas, givesWideCharactersTwoCells)
{
    Canvas canvas({1, 6});
    EXPECT_EQ(canvas.write({0, 0}, wide), 4U);
    EXPECT_EQ(canvas.cell({0, 0}).columns, 2U);
    EXPECT_EQ(canvas.cell({0, 1}).columns, 0U);
    EXPECT_EQ(canvas.rowText(0), wide);
}

TEST(Canvas, keepsCombiningCharactersInTheCellOfTheirBase)
{
    Canvas canvas({1, 6});
    EXPECT_EQ(canvas.write({0, 0}, combined), 2U);
    EXPECT_EQ(canvas.cell({0, 0}).text, "e\u0301");
    EXPECT_EQ(canvas.cell({0, 1}).text, "a\u0308");
    canvas.write({0, 2}, "\u65E5\u0301");
    EXPECT_EQ(canvas.cell({0, 2}).text, "\u65E5\u0301");
}

TEST(Canvas, leavesOutJoiners)
{
    Canvas canvas({1, 12});
    EXPECT_EQ(canvas.write({0, 0}, "\U0001F468\u200D\U0001F469\u2764\uFE0F\u200Bz"), 6U);
    EXPECT_EQ(canvas.rowText(0), "\U0001F468\U0001F469\u2764z");
}

TEST(Canvas, sanitizesTexts)
{
    Canvas canvas({1, 20});
    canvas.write({0, 0}, "a\x1b[2J\u202Eb\nc");
    EXPECT_EQ(canvas.rowText(0), "a\uFFFD[2J\uFFFDb c");
}

TEST(Canvas, hasOnlyAsciiForAsciiTerminals)
{
    Canvas canvas({3, 12}, Charset::ascii);
    canvas.write({0, 0}, std::string("\u2588\u2591\u2500\u25CF ") + wide);
    canvas.write({1, 0}, std::string(combined) + "\x1b");
    canvas.write({2, 0}, "too long for this", {}, 8);
    EXPECT_EQ(canvas.text(), "#.-* ????\nea?\ntoo lon~\n");
    EXPECT_EQ(canvas.cell({0, 5}).columns, 1U);
}

TEST(Canvas, copiesRowsWithTheCursor)
{
    Canvas whole({4, 3});
    whole.write({2, 0}, "abc");
    whole.setCursor({2, 1});
    Canvas canvas({3, 8});
    canvas.copy(whole, 1, {.row = 1, .column = 4, .rows = 2, .columns = 3});
    EXPECT_EQ(canvas.text(), "\n\n    abc\n");
    EXPECT_EQ(canvas.cursor(), (Place{2, 5}));
    Canvas other({3, 8});
    other.copy(whole, 0, {.row = 0, .column = 0, .rows = 2, .columns = 3});
    EXPECT_EQ(other.cursor(), std::nullopt);
}

Canvas pictureOfDigits(std::string_view text, Size room, DigitStyle style = DigitStyle::full,
                       Charset charset = Charset::ascii)
{
    Canvas canvas(room, charset);
    BigDigits(text, room).draw(canvas, {0, 0}, style, {});
    return canvas;
}

TEST(BigDigits, adaptToTheRoom)
{
    EXPECT_EQ(pictureOfDigits("+1:0", {5, 40}).rowText(2), "######      ##      ##  ##");
    EXPECT_EQ(pictureOfDigits("+1:0", {5, 16}).rowText(2), "###   #   # #");
    EXPECT_EQ(pictureOfDigits("+1:0", {5, 8}).rowText(0), "+1:0");
    EXPECT_EQ(pictureOfDigits("+1:0", {4, 40}).rowText(0), "+1:0");
}

TEST(BigDigits, growInALargeRoom)
{
    const Size room{.rows = 12, .columns = 40};
    const BigDigits digits("17", room);
    EXPECT_EQ(digits.rows(), 10u);
    EXPECT_EQ(digits.columns(), 28u);
    const Canvas canvas = pictureOfDigits("17", room);
    EXPECT_EQ(canvas.rowText(1), "        ####    ############");
    EXPECT_EQ(canvas.rowText(9), "        ####            ####");
    EXPECT_EQ(canvas.rowText(10), "");
}

TEST(BigDigits, areLinesWhereTheyAreHollow)
{
    EXPECT_EQ(pictureOfDigits("8:1", {5, 40}, DigitStyle::hollow, Charset::unicode).text(),
              "┌───┐           │\n"
              "│   │   ○       │\n"
              "├───┤           │\n"
              "│   │   ○       │\n"
              "└───┘           │\n");
    const Canvas large = pictureOfDigits("7", {10, 20}, DigitStyle::hollow, Charset::unicode);
    EXPECT_EQ(large.rowText(0), "────────┐");
    EXPECT_EQ(large.rowText(9), "");
    EXPECT_EQ(large.rowText(8), "        │");
}

}  // namespace
}  // namespace quillmere::test
