#include "screen/canvas/big_digits.hpp"

#include <array>

namespace quillmere::screen {
namespace {

struct BigDigit {
    char character;
    std::array<std::string_view, bigDigitRows> rows;
};

// clang-format off
constexpr auto bigDigits = std::to_array<BigDigit>({
    {'0', {"###", "# #", "# #", "# #", "###"}},
    {'1', {"  #", "  #", "  #", "  #", "  #"}},
    {'2', {"###", "  #", "###", "#  ", "###"}},
    {'3', {"###", "  #", "###", "  #", "###"}},
    {'4', {"# #", "# #", "###", "  #", "  #"}},
    {'5', {"###", "#  ", "###", "  #", "###"}},
    {'6', {"###", "#  ", "###", "# #", "###"}},
    {'7', {"###", "  #", "  #", "  #", "  #"}},
    {'8', {"###", "# #", "###", "# #", "###"}},
    {'9', {"###", "# #", "###", "  #", "###"}},
    {':', {" ", "#", " ", "#", " "}},
    {'+', {"   ", " # ", "###", " # ", "   "}},
});
// clang-format on

const BigDigit* bigDigitOf(char character)
{
    for (const BigDigit& digit : bigDigits) {
        if (digit.character == character) {
            return &digit;
        }
    }
    return nullptr;
}

/// One row of the text, with dots `width` columns wide.
std::string rowOfDigits(std::string_view text, std::size_t row, std::size_t width)
{
    std::string line;
    for (const char character : text) {
        const BigDigit* const digit = bigDigitOf(character);
        line += line.empty() ? "" : std::string(width, ' ');
        for (const char dot : digit ? digit->rows[row] : std::string_view()) {
            for (std::size_t column = 0; column < width; ++column) {
                line += dot == '#' ? "█" : " ";
            }
        }
    }
    return line;
}

/// The width of the text in dots.
std::size_t dotsOf(std::string_view text)
{
    std::size_t dots = 0;
    for (const char character : text) {
        const BigDigit* const digit = bigDigitOf(character);
        dots += (dots == 0 ? 0 : 1) + (digit ? digit->rows[0].size() : 0);
    }
    return dots;
}

}  // namespace

void drawBigDigits(Canvas& canvas, const Area& area, std::string_view text, Look look)
{
    const std::size_t dots = dotsOf(text);
    const std::size_t width = 2 * dots <= area.columns ? 2 : 1;
    if (dots > area.columns || area.rows < bigDigitRows) {
        canvas.write({area.row, area.column}, text, look, area.columns);
        return;
    }
    const std::size_t left = area.column + (area.columns - dots * width) / 2;
    for (std::size_t row = 0; row < bigDigitRows; ++row) {
        canvas.write({area.row + row, left}, rowOfDigits(text, row, width), look);
    }
}

}  // namespace quillmere::screen
