// Times in large digits.
#pragma once

#include "screen/canvas/canvas.hpp"

#include <string_view>

namespace quillmere::screen {

enum class DigitStyle {
    full,
    hollow,  ///< lines only: the time stands still
};

/// A text of digits, colons and plus signs, as large as fits into a room: five rows high or a multiple of
/// that, in a narrow room half as wide, and where there is no room for that of the usual size.
class BigDigits {
public:
    /// The height of the smallest large digits.
    static constexpr std::size_t leastRows = 5;

    /// `text` must outlive the digits.
    BigDigits(std::string_view text, Size room);

    std::size_t rows() const { return scale_ == 0 ? 1 : scale_ * leastRows; }
    std::size_t columns() const;

    void draw(Canvas& canvas, Place place, DigitStyle style, Look look) const;

private:
    void drawFull(Canvas& canvas, Place place, Look look) const;
    void drawHollow(Canvas& canvas, Place place, Look look) const;

    std::string_view text_;
    std::size_t scale_ = 0;     ///< rows of a dot; 0: the usual size
    std::size_t dotWidth_ = 1;  ///< columns of a dot
};

}  // namespace quillmere::screen
