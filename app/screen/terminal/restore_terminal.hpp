// Restores the terminal after curses.
#pragma once

#include <string_view>

namespace quillmere::screen {

/// Turns bracketed paste on or off; terminals without it ignore this.
inline constexpr std::string_view markPastes = "\x1b[?2004h";
inline constexpr std::string_view markNoPastes = "\x1b[?2004l";

/// Keeps the title of the terminal's window and brings it back; terminals without titles ignore this.
inline constexpr std::string_view keepTitle = "\x1b[22;0t";
inline constexpr std::string_view bringTitleBack = "\x1b[23;0t";

/// Writes to the terminal directly, not through curses.
void writeToTerminal(std::string_view sequence);

/// Ends or interrupts curses: the terminal has its former modes, and the prompt of a shell gets its own row.
void leaveScreen();

}  // namespace quillmere::screen
