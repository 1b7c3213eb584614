// The colours of every surface, and their contrasts.
#include "base/text/colours.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

namespace quillmere::test {
namespace {

using base::Background;
using base::Colour;
using base::ColourDepth;

constexpr double leastForText = 4.5;
constexpr double leastForMarks = 3;

double linear(std::string_view hex)
{
    const double share = std::stoi(std::string(hex), nullptr, 16) / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

/// Relative luminance (WCAG 2.2).
double luminance(std::string_view colour)
{
    return 0.2126 * linear(colour.substr(1, 2)) + 0.7152 * linear(colour.substr(3, 2)) +
           0.0722 * linear(colour.substr(5, 2));
}

double contrast(std::string_view one, std::string_view other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

TEST(Contrast, isThatOfTheStandard)
{
    EXPECT_NEAR(contrast("#000000", "#ffffff"), 21, 0.01);
    EXPECT_NEAR(contrast("#777777", "#ffffff"), 4.48, 0.01);
}

/// The colour of a number from 16 to 255 in the palette of xterm: a cube of 6 x 6 x 6, then grey.
std::array<int, 3> ofPalette(int number)
{
    if (number >= 232) {
        const int grey = 8 + 10 * (number - 232);
        return {grey, grey, grey};
    }
    constexpr std::array<int, 6> steps = {0, 95, 135, 175, 215, 255};
    const auto index = static_cast<std::size_t>(number - 16);
    return {steps[index / 36], steps[index / 6 % 6], steps[index % 6]};
}

std::string inHex(const std::array<int, 3>& parts)
{
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", static_cast<unsigned>(parts[0]),
                  static_cast<unsigned>(parts[1]), static_cast<unsigned>(parts[2]));
    return text.data();
}

/// A true colour and its neighbour in the palette, on paper and on a card.
void expectContrast(const Colour& colour, double least)
{
    for (const Background background : {Background::light, Background::dark}) {
        const int ofPaletteOf256 = background == Background::light ? colour.lightOf256 : colour.darkOf256;
        for (const base::Shades& below : {base::paper, base::card}) {
            const std::string_view ground = below.on(background);
            EXPECT_GE(contrast(colour.shades.on(background), ground), least) << ground;
            EXPECT_GE(contrast(inHex(ofPalette(ofPaletteOf256)), ground), least) << ofPaletteOf256;
        }
    }
}

TEST(Colours, ofAccentsCanBeReadAsText)
{
    for (const auto& [accent, colour] : base::accentColours) {
        SCOPED_TRACE(rawValue(accent));
        expectContrast(colour, leastForText);
    }
}

TEST(Colours, ofInkCanBeReadAsText)
{
    for (const Background background : {Background::light, Background::dark}) {
        EXPECT_GE(contrast(base::ink.on(background), base::paper.on(background)), leastForText);
        EXPECT_GE(contrast(base::ink.on(background), base::card.on(background)), leastForText);
    }
}

TEST(Colours, ofCompletionsCanBeSeenAsMarks)
{
    for (const auto& [completion, colour] : base::completionColours) {
        SCOPED_TRACE(rawValue(completion));
        expectContrast(colour, leastForMarks);
    }
}

TEST(Colours, areChosenByWhatTheTerminalHas)
{
    const Colour& focus = base::colourOf(QuillmereDesign::Accent::focus);
    const auto on = [&](ColourDepth depth, Background background) {
        return base::foregroundParameters(focus, depth, background);
    };
    EXPECT_EQ(on(ColourDepth::ofAll, Background::dark), "38;2;224;128;106");
    EXPECT_EQ(on(ColourDepth::ofAll, Background::light), "38;2;168;67;47");
    EXPECT_EQ(on(ColourDepth::of256, Background::dark), "38;5;173");
    EXPECT_EQ(on(ColourDepth::of256, Background::light), "38;5;124");
    EXPECT_EQ(on(ColourDepth::of16, Background::light), "31");
    EXPECT_EQ(on(ColourDepth::none, Background::dark), "");
    EXPECT_EQ(base::foregroundParameters(base::colourOf(QuillmereDesign::Accent::neutral), ColourDepth::of16,
                                         Background::dark),
              "");
}

}  // namespace
}  // namespace quillmere::test
