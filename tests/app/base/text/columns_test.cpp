// Texts within a number of terminal columns.
#include "base/text/columns.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using Lines = std::vector<std::string>;

TEST(ColumnsOf, areThoseThatATerminalNeeds)
{
    struct Case {
        const char* text;
        std::size_t expected;
    };
    for (const Case& sample : {Case{"", 0}, Case{"plain", 5}, Case{"Grüße", 5}, Case{"e\u0301", 1},
                               Case{"日本", 4}, Case{"\uFFFD", 1}, Case{"\u05E9\u05DC\u05D5\u05DD", 4}}) {
        EXPECT_EQ(base::columnsOf(sample.text), sample.expected) << sample.text;
    }
}

TEST(CutToColumns, leavesATextThatFits)
{
    EXPECT_EQ(base::cutToColumns("Grüße", 5), "Grüße");
    EXPECT_EQ(base::cutToColumns("", 0), "");
}

TEST(CutToColumns, endsACutTextWithAnEllipsis)
{
    EXPECT_EQ(base::cutToColumns("Outline", 4), "Out\u2026");
    EXPECT_EQ(base::cutToColumns("Outline", 1), "\u2026");
    EXPECT_EQ(base::cutToColumns("Outline", 0), "");
}

TEST(CutToColumns, neverCutsWithinACharacter)
{
    // A second wide character would need the column of the ellipsis.
    EXPECT_EQ(base::cutToColumns("日本語", 4), "日\u2026");
    EXPECT_EQ(base::cutToColumns("ae\u0301iou", 3), "ae\u0301\u2026");
}

TEST(CutToColumns, limitsTheBytesOfZeroWidthCharacters)
{
    std::string marks = "a";
    std::string invisible;
    for (int count = 0; count < 3'000; ++count) {
        marks += "\u0301";
        invisible += "b\u200B\u200B";
    }
    for (const std::string& text : {marks, "Focus " + marks, invisible}) {
        for (const std::size_t most : {1u, 20u, 60u, 4'000u}) {
            const std::string cut = base::cutToColumns(text, most);
            EXPECT_LE(cut.size(), most * base::mostBytesPerColumn);
            EXPECT_LE(base::columnsOf(cut), most);
            EXPECT_EQ(cut.ends_with("\u2026"), cut != text);
        }
    }
    EXPECT_EQ(base::cutToColumns("Focus " + marks, 60), "Focus \u2026");
    EXPECT_EQ(base::cutToColumns("Focus " + marks.substr(0, 101) + " b", 4'000), "Focus \u2026");
    EXPECT_EQ(base::cutToColumns("Focus " + marks.substr(0, 11) + " b", 9),
              "Focus " + marks.substr(0, 11) + " b");
}

TEST(CutToColumns, keepsLongEmoji)
{
    const std::string family = "\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466";
    EXPECT_EQ(base::cutToColumns(family, base::columnsOf(family)), family);
}

TEST(CutToBytes, neverCutsWithinACharacter)
{
    EXPECT_EQ(base::cutToBytes("Grüße", 7), "Grüße");
    EXPECT_EQ(base::cutToBytes("Grüße", 6), "Gr\u2026");
    EXPECT_EQ(base::cutToBytes("ae\u0301iouy", 7), "ae\u0301\u2026");
    EXPECT_EQ(base::cutToBytes("ae\u0301iouy", 6), "a\u2026");
    EXPECT_EQ(base::cutToBytes("Outline", 3), "\u2026");
    EXPECT_EQ(base::cutToBytes("Outline", 2), "");
}

TEST(Wrapped, breaksBetweenWords)
{
    EXPECT_EQ(base::wrapped("write first, sort later", 12), (Lines{"write first,", "sort later"}));
}

TEST(Wrapped, breaksAWordOnlyWhenItIsLongerThanALine)
{
    EXPECT_EQ(base::wrapped("a longish b", 4), (Lines{"a", "long", "ish", "b"}));
}

TEST(Wrapped, breaksBetweenWideCharacters)
{
    EXPECT_EQ(base::wrapped("日本語", 4), (Lines{"日本", "語"}));
    EXPECT_EQ(base::wrapped("日本", 1), (Lines{"日", "本"}));
}

TEST(Wrapped, keepsTheLinesOfTheText)
{
    EXPECT_EQ(base::wrapped("one\n\ntwo", 10), (Lines{"one", "", "two"}));
    EXPECT_EQ(base::wrapped("", 10), (Lines{""}));
}

}  // namespace
}  // namespace quillmere::test
