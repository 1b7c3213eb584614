// How much room a text takes on a terminal.
#include "text/columns.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using Lines = std::vector<std::string>;

TEST(Columns, countWhatATerminalShows)
{
    struct Case {
        const char* text;
        std::size_t expected;
    };
    for (const Case& sample : {Case{"", 0}, Case{"plain", 5}, Case{"Grüße", 5}, Case{"e\u0301", 1},
                               Case{"日本", 4}, Case{"\uFFFD", 1}, Case{"\u05E9\u05DC\u05D5\u05DD", 4}}) {
        EXPECT_EQ(app::columns(sample.text), sample.expected) << sample.text;
    }
}

TEST(CutToColumns, leavesATextThatFits)
{
    EXPECT_EQ(app::cutToColumns("Grüße", 5), "Grüße");
    EXPECT_EQ(app::cutToColumns("", 0), "");
}

TEST(CutToColumns, endsWhatItCutsWithAnEllipsis)
{
    EXPECT_EQ(app::cutToColumns("Outline", 4), "Out\u2026");
    EXPECT_EQ(app::cutToColumns("Outline", 1), "\u2026");
    EXPECT_EQ(app::cutToColumns("Outline", 0), "");
}

TEST(CutToColumns, neverCutsACharacterInTwo)
{
    // A wide one would need the column of the ellipsis.
    EXPECT_EQ(app::cutToColumns("日本語", 4), "日\u2026");
    EXPECT_EQ(app::cutToColumns("ae\u0301iou", 3), "ae\u0301\u2026");
}

TEST(Wrapped, breaksBetweenWords)
{
    EXPECT_EQ(app::wrapped("write first, sort later", 12), (Lines{"write first,", "sort later"}));
}

TEST(Wrapped, breaksAWordOnlyWhenItIsLongerThanALine)
{
    EXPECT_EQ(app::wrapped("a longish b", 4), (Lines{"a", "long", "ish", "b"}));
}

TEST(Wrapped, breaksBetweenWideCharacters)
{
    EXPECT_EQ(app::wrapped("日本語", 4), (Lines{"日本", "語"}));
    EXPECT_EQ(app::wrapped("日本", 1), (Lines{"日", "本"}));
}

TEST(Wrapped, keepsTheLinesOfTheText)
{
    EXPECT_EQ(app::wrapped("one\n\ntwo", 10), (Lines{"one", "", "two"}));
    EXPECT_EQ(app::wrapped("", 10), (Lines{""}));
}

}  // namespace
}  // namespace quillmere::test
