// Times in large digits.
#pragma once

#include "screen/canvas/canvas.hpp"

#include <string_view>

namespace quillmere::screen {

/// Draws a text of digits, colons and plus signs five rows high, centred at the top of the area. In a narrow
/// area the digits are half as wide, and in an even narrower area the text has its usual size.
void drawBigDigits(Canvas& canvas, const Area& area, std::string_view text, Look look);

inline constexpr std::size_t bigDigitRows = 5;

}  // namespace quillmere::screen
