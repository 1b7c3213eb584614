// The colours of the accents.
#include "base/text/accents.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>

namespace quillmere::test {
namespace {

using base::AccentColours;
using base::accentColours;

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

TEST(AccentColours, canBeReadAsTextOnLightAndDarkBackgrounds)
{
    constexpr double leastForText = 4.5;
    for (const AccentColours& colours : accentColours) {
        SCOPED_TRACE(rawValue(colours.value));
        for (const char* const background : {"#faf9f6", "#ffffff"}) {
            EXPECT_GE(contrast(colours.light, background), leastForText);
        }
        for (const char* const background : {"#171614", "#1f1e1b"}) {
            EXPECT_GE(contrast(colours.dark, background), leastForText);
        }
    }
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

TEST(AccentColours, ofThePaletteAreNearTheDarkOnes)
{
    constexpr int nearEnough = 40;
    for (const AccentColours& colours : accentColours) {
        if (colours.of256 == base::usualColour) {
            continue;
        }
        SCOPED_TRACE(rawValue(colours.value));
        const std::array<int, 3> shown = ofPalette(colours.of256);
        for (std::size_t part = 0; part < shown.size(); ++part) {
            const int wanted = std::stoi(std::string(colours.dark.substr(1 + 2 * part, 2)), nullptr, 16);
            EXPECT_LE(std::abs(shown[part] - wanted), nearEnough);
        }
    }
}

}  // namespace
}  // namespace quillmere::test
