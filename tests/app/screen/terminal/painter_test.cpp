// The bytes that show a picture.
#include "screen/terminal/painter.hpp"

#include "screen/screen_testing.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using namespace screen;
using base::Background;
using base::ColourDepth;
using QuillmereDesign::Accent;

/// A terminal whose sequences can be read.
TerminalAbilities readable(ColourDepth colours, bool scrollsAtTheEnd = false)
{
    return {.moveTo =
                [](Place place) {
                    return "<" + std::to_string(place.row) + "," + std::to_string(place.column) + ">";
                },
            .clear = "<clear>",
            .plain = "<plain>",
            .bold = "<bold>",
            .dim = "<dim>",
            .colours = colours,
            .scrollsAtTheEnd = scrollsAtTheEnd};
}

Canvas pictureOf(std::string_view text, Look look = {})
{
    Canvas canvas({1, 8});
    canvas.write({0, 1}, text, look);
    return canvas;
}

/// The bytes of a text alone on its terminal.
std::string painted(Look look, ColourDepth colours, Background background = Background::dark)
{
    Painter painter(readable(colours));
    painter.setBackground(background);
    return painter.paint(pictureOf("ab", look));
}

TEST(Painter, paintsTheFirstPictureWholeAndThenWhatChanges)
{
    Painter painter(readable(ColourDepth::none));
    EXPECT_EQ(painter.paint(pictureOf("abc")), "<plain><clear><0,1>abc<plain>");
    EXPECT_EQ(painter.paint(pictureOf("abc")), "<plain><plain>");
    EXPECT_EQ(painter.paint(pictureOf("aXcd")), "<plain><0,2>X<0,4>d<plain>");
    EXPECT_EQ(painter.paint(pictureOf("a")), "<plain><0,2>   <plain>");
    painter.forget();
    EXPECT_EQ(painter.paint(pictureOf("a")), "<plain><clear><0,1>a<plain>");
}

TEST(Painter, paintsAPictureOfAnotherSizeWhole)
{
    Painter painter(readable(ColourDepth::none));
    painter.paint(pictureOf("abc"));
    EXPECT_EQ(painter.paint(Canvas({2, 2})), "<plain><clear><plain>");
}

TEST(Painter, movesBehindCharactersWhoseWidthMayBeSeenOtherwise)
{
    Painter painter(readable(ColourDepth::none));
    EXPECT_EQ(painter.paint(pictureOf("\u65E5b\u00E9c")),
              "<plain><clear><0,1>\u65E5<0,3>b\u00E9<0,5>c<plain>");
    EXPECT_EQ(painter.paint(pictureOf("xyb\u00E9c")), "<plain><0,1>xy<plain>");
}

TEST(Painter, putsTheCursorWhereThePictureHasIt)
{
    Painter painter(readable(ColourDepth::none));
    Canvas canvas({1, 8});
    canvas.setCursor({0, 5});
    EXPECT_EQ(painter.paint(canvas), "<plain><clear><plain><0,5>");
}

TEST(Painter, leavesTheLastCellOutWhereItWouldScroll)
{
    Canvas canvas({1, 2});
    canvas.write({0, 0}, "ab");
    EXPECT_EQ(Painter(readable(ColourDepth::none)).paint(canvas), "<plain><clear><0,0>ab<plain>");
    EXPECT_EQ(Painter(readable(ColourDepth::none, true)).paint(canvas), "<plain><clear><0,0>a<plain>");
}

TEST(Painter, coloursByDepthAndBackground)
{
    const Look focus{.accent = Accent::focus, .bold = true};
    EXPECT_EQ(painted(focus, ColourDepth::of16), "<plain><clear><0,1><plain><bold>\x1b[31mab<plain>");
    EXPECT_EQ(painted(focus, ColourDepth::of256), "<plain><clear><0,1><plain><bold>\x1b[38;5;173mab<plain>");
    EXPECT_EQ(painted(focus, ColourDepth::of256, Background::light),
              "<plain><clear><0,1><plain><bold>\x1b[38;5;124mab<plain>");
    EXPECT_EQ(painted(focus, ColourDepth::ofAll),
              "<plain><clear><0,1><plain><bold>\x1b[38;2;224;128;106mab<plain>");
    EXPECT_EQ(painted(focus, ColourDepth::none), "<plain><clear><0,1><plain><bold>ab<plain>");
}

TEST(Painter, makesTextSecondaryByTheNeutralColourOrByDimming)
{
    EXPECT_EQ(painted({.dim = true}, ColourDepth::of256),
              "<plain><clear><0,1><plain>\x1b[38;5;247mab<plain>");
    EXPECT_EQ(painted({.dim = true}, ColourDepth::of16), "<plain><clear><0,1><plain><dim>ab<plain>");
    EXPECT_EQ(painted({.edge = true}, ColourDepth::of256),
              "<plain><clear><0,1><plain>\x1b[38;5;236mab<plain>");
}

TEST(Painter, coloursACompletionBeforeAnAccent)
{
    EXPECT_EQ(painted({.accent = Accent::focus, .completion = CompletionResult::half}, ColourDepth::of16),
              "<plain><clear><0,1><plain>\x1b[33mab<plain>");
}

TEST(Painter, paintsWholeOnAnotherBackground)
{
    Painter painter(readable(ColourDepth::of256));
    painter.paint(pictureOf("a"));
    painter.setBackground(Background::dark);
    EXPECT_EQ(painter.paint(pictureOf("a")), "<plain><plain>");
    painter.setBackground(Background::light);
    EXPECT_EQ(painter.paint(pictureOf("a")), "<plain><clear><0,1>a<plain>");
}

}  // namespace
}  // namespace quillmere::test
