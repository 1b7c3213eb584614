// Times that are read from across the room.
#pragma once

#include "screen/canvas.hpp"

#include <string_view>

namespace quillmere::screen {

/// A text of digits, colons and plus signs, five rows high, in the middle of the area's top. Half as wide
/// where there is little room, and as it is where there is less.
void drawBigDigits(Canvas& canvas, const Area& area, std::string_view text, Look look);

inline constexpr std::size_t bigDigitRows = 5;

}  // namespace quillmere::screen
