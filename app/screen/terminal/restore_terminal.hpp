// Restores the terminal after curses.
#pragma once

#include <string_view>

namespace quillmere::screen {

/// Turns bracketed paste on or off; terminals without it ignore this.
inline constexpr std::string_view markPastes = "\x1b[?2004h";
inline constexpr std::string_view markNoPastes = "\x1b[?2004l";

/// Turns reports of the mouse on or off: presses and the wheel (mode 1000 of xterm) in decimal numbers
/// (1006); terminals without them ignore this. Shift still selects text.
inline constexpr std::string_view reportMouse = "\x1b[?1000h\x1b[?1006h";
inline constexpr std::string_view reportNoMouse = "\x1b[?1006l\x1b[?1000l";

/// Keeps the title of the terminal's window and brings it back; terminals without titles ignore this.
inline constexpr std::string_view keepTitle = "\x1b[22;0t";
inline constexpr std::string_view bringTitleBack = "\x1b[23;0t";

/// Writes to the terminal directly, not through curses.
void writeToTerminal(std::string_view sequence);

/// Ends or interrupts curses: the terminal has its former modes, and the prompt of a shell gets its own row.
void leaveScreen();

}  // namespace quillmere::screen
