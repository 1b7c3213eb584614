// What the terminal of this process understands.
#pragma once

#include "screen/terminal/painter.hpp"

namespace quillmere::screen {

/// By its description (terminfo(5)), which must be loaded, and by COLORTERM and NO_COLOR.
TerminalAbilities abilitiesOfTerminal();

}  // namespace quillmere::screen
