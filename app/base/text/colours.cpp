#include "base/text/colours.hpp"

#include <charconv>

namespace quillmere::base {
namespace {

/// One of the three parts of "#rrggbb", in decimal.
std::string partOf(std::string_view shade, std::size_t part)
{
    constexpr std::size_t digits = 2;
    int value = 0;
    const char* const begin = shade.data() + 1 + digits * part;
    std::from_chars(begin, begin + digits, value, 16);
    return std::to_string(value);
}

}  // namespace

std::string foregroundParameters(const Colour& colour, ColourDepth depth, Background background)
{
    const bool isLight = background == Background::light;
    const std::string_view shade = colour.shades.on(background);
    switch (depth) {
        case ColourDepth::none: break;
        case ColourDepth::of16: return colour.of16 == usualColour ? "" : "3" + std::to_string(colour.of16);
        case ColourDepth::of256:
            return "38;5;" + std::to_string(isLight ? colour.lightOf256 : colour.darkOf256);
        case ColourDepth::ofAll:
            return "38;2;" + partOf(shade, 0) + ";" + partOf(shade, 1) + ";" + partOf(shade, 2);
    }
    return "";
}

}  // namespace quillmere::base
