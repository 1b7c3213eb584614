// Colour and bars.
#include "base/text/style.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "support/process_settings.hpp"

namespace quillmere::test {
namespace {

using base::progressBar;
using base::Style;
using base::wantsColour;
using QuillmereDesign::Accent;

TEST(WantsColour, onATerminalWithColoursUnlessNoColorIsSet)
{
    struct Case {
        bool outputIsTerminal;
        std::optional<std::string> noColour;
        std::optional<std::string> terminal;
        bool wanted;
    };
    const Case cases[] = {
        {true, std::nullopt, "xterm", true},
        {true, "", "xterm", true},
        {true, "1", "xterm", false},
        {true, std::nullopt, "dumb", false},
        {true, std::nullopt, std::nullopt, false},
        {false, std::nullopt, "xterm", false},
    };
    for (const Case& each : cases) {
        const EnvironmentVariable noColour("NO_COLOR", each.noColour);
        const EnvironmentVariable terminal("TERM", each.terminal);
        EXPECT_EQ(wantsColour(each.outputIsTerminal), each.wanted);
    }
}

TEST(Style, wrapsTextsInTheColourOfTheirAccent)
{
    const Style style(true);
    EXPECT_EQ(style.accented("Focus", Accent::focus), "\x1b[1;31mFocus\x1b[0m");
    EXPECT_EQ(style.accented("Break", Accent::rest), "\x1b[1;32mBreak\x1b[0m");
    EXPECT_EQ(style.accented("Planning", Accent::plan), "\x1b[1;34mPlanning\x1b[0m");
    EXPECT_EQ(style.accented("Review", Accent::review), "\x1b[1;35mReview\x1b[0m");
    EXPECT_EQ(style.accented("Idle", Accent::neutral), "\x1b[1mIdle\x1b[0m");
    EXPECT_EQ(style.dimmed("Next"), "\x1b[2mNext\x1b[0m");
    EXPECT_EQ(style.marked("✓ 1", CompletionResult::yes), "\x1b[32m✓ 1\x1b[0m");
    EXPECT_EQ(style.marked("½ 2", CompletionResult::half), "\x1b[33m½ 2\x1b[0m");
    EXPECT_EQ(style.marked("✗ 3", CompletionResult::no), "✗ 3");
}

TEST(Style, hasTheColoursOfAllSurfacesWhereItKnowsTheBackground)
{
    const Style dark(base::ColourDepth::ofAll, base::Background::dark);
    EXPECT_EQ(dark.accented("Focus", Accent::focus), "\x1b[1;38;2;224;128;106mFocus\x1b[0m");
    EXPECT_EQ(dark.tinted("#", Accent::focus), "\x1b[38;2;224;128;106m#\x1b[0m");
    const Style light(base::ColourDepth::of256, base::Background::light);
    EXPECT_EQ(light.tinted("#", Accent::focus), "\x1b[38;5;124m#\x1b[0m");
    EXPECT_EQ(light.strong("Heading"), "\x1b[1mHeading\x1b[0m");
}

TEST(WantedColours, areThoseOfTheTerminal)
{
    struct Case {
        const char* terminal;
        std::optional<std::string> more;
        base::ColourDepth depth;
    };
    const EnvironmentVariable noColour("NO_COLOR", std::nullopt);
    for (const Case& each : {Case{"xterm", std::nullopt, base::ColourDepth::of16},
                             Case{"xterm-256color", std::nullopt, base::ColourDepth::of256},
                             Case{"xterm", "truecolor", base::ColourDepth::ofAll},
                             Case{"dumb", "truecolor", base::ColourDepth::none}}) {
        const EnvironmentVariable terminal("TERM", each.terminal);
        const EnvironmentVariable more("COLORTERM", each.more);
        EXPECT_EQ(base::wantedColours(true), each.depth) << each.terminal;
    }
}

TEST(Style, leavesTextsAsTheyAreWithoutColour)
{
    const Style style(false);
    for (const Accent accent : allCases<Accent>()) {
        EXPECT_EQ(style.accented("Text", accent), "Text");
    }
    EXPECT_EQ(style.dimmed("Text"), "Text");
}

TEST(ProgressBar, isAlwaysOfOneWidth)
{
    const auto bar = [](std::size_t filled) {
        return "[" + std::string(filled, '#') + std::string(24 - filled, '.') + "]";
    };
    EXPECT_EQ(progressBar(0), bar(0));
    EXPECT_EQ(progressBar(0.5), bar(12));
    EXPECT_EQ(progressBar(1), bar(24));
    EXPECT_EQ(progressBar(-1), bar(0));
    EXPECT_EQ(progressBar(1e300), bar(24));
    EXPECT_EQ(progressBar(std::numeric_limits<double>::infinity()), bar(24));
}

}  // namespace
}  // namespace quillmere::test
