#include "screen/canvas/big_digits.hpp"

#include "screen/canvas/characters.hpp"

#include <algorithm>
#include <array>
#include <string>

namespace quillmere::screen {
namespace {

constexpr std::size_t rowsOfDots = BigDigits::leastRows;

struct BigDigit {
    char character;
    std::array<std::string_view, rowsOfDots> rows;
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

/// The text as rows of dots, with an empty column between two digits.
std::array<std::string, rowsOfDots> dotsOf(std::string_view text)
{
    std::array<std::string, rowsOfDots> rows;
    for (const char character : text) {
        if (const BigDigit* const digit = bigDigitOf(character)) {
            for (std::size_t row = 0; row < rowsOfDots; ++row) {
                rows[row] += rows[row].empty() ? "" : " ";
                rows[row] += digit->rows[row];
            }
        }
    }
    return rows;
}

std::size_t widthInDots(std::string_view text) { return dotsOf(text).front().size(); }

/// The lines of a box drawing character, as bits.
enum Lines : unsigned { noLine = 0, lineUp = 1, lineRight = 2, lineDown = 4, lineLeft = 8 };

/// By their lines; a dot without neighbours is a ring.
constexpr std::array<std::string_view, 16> lineCharacters = {"○", "│", "─", "└", "│", "│", "┌", "├",
                                                             "─", "┘", "─", "┴", "┐", "┤", "┬", "┼"};

}  // namespace

BigDigits::BigDigits(std::string_view text, Size room) : text_(text)
{
    const std::size_t dots = widthInDots(text);
    if (dots == 0 || dots > room.columns || room.rows < leastRows) {
        return;
    }
    scale_ = std::max<std::size_t>(1, std::min(room.rows / leastRows, room.columns / (2 * dots)));
    dotWidth_ = 2 * dots <= room.columns ? 2 * scale_ : 1;
}

std::size_t BigDigits::columns() const
{
    return scale_ == 0 ? shownColumns(text_) : widthInDots(text_) * dotWidth_;
}

void BigDigits::draw(Canvas& canvas, Place place, DigitStyle style, Look look) const
{
    if (scale_ == 0) {
        canvas.write(place, text_, look);
    } else if (style == DigitStyle::hollow && dotWidth_ > 1) {
        drawHollow(canvas, place, look);
    } else {
        drawFull(canvas, place, look);
    }
}

void BigDigits::drawFull(Canvas& canvas, Place place, Look look) const
{
    const auto dots = dotsOf(text_);
    for (std::size_t row = 0; row < rows(); ++row) {
        std::string line;
        for (const char dot : dots[row / scale_]) {
            for (std::size_t column = 0; column < dotWidth_; ++column) {
                line += dot == '#' ? "█" : " ";
            }
        }
        canvas.write({place.row + row, place.column}, line, look);
    }
}

void BigDigits::drawHollow(Canvas& canvas, Place place, Look look) const
{
    const auto dots = dotsOf(text_);
    const auto isDot = [&](std::size_t row, std::size_t column) {
        return row < dots.size() && column < dots[row].size() && dots[row][column] == '#';
    };
    for (std::size_t row = 0; row < dots.size(); ++row) {
        for (std::size_t column = 0; column < dots[row].size(); ++column) {
            if (!isDot(row, column)) {
                continue;
            }
            const unsigned lines = (row > 0 && isDot(row - 1, column) ? lineUp : noLine) |
                                   (isDot(row, column + 1) ? lineRight : noLine) |
                                   (isDot(row + 1, column) ? lineDown : noLine) |
                                   (column > 0 && isDot(row, column - 1) ? lineLeft : noLine);
            const Place joint{place.row + row * scale_, place.column + column * dotWidth_};
            canvas.write(joint, lineCharacters[lines], look);
            for (std::size_t step = 1; (lines & lineRight) && step < dotWidth_; ++step) {
                canvas.write({joint.row, joint.column + step}, "─", look);
            }
            for (std::size_t step = 1; (lines & lineDown) && step < scale_; ++step) {
                canvas.write({joint.row + step, joint.column}, "│", look);
            }
        }
    }
}

}  // namespace quillmere::screen
