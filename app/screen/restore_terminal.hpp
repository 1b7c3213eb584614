// The way back from curses.
#pragma once

#include <string_view>

namespace quillmere::screen {

/// Has a terminal put marks around what is pasted, and no more; those that cannot ignore it.
inline constexpr std::string_view markPastes = "\x1b[?2004h";
inline constexpr std::string_view markNoPastes = "\x1b[?2004l";

/// Writes to the terminal past curses.
void writeToTerminal(std::string_view sequence);

/// Ends or interrupts curses; the terminal is then as it was, and the prompt of a shell has a row of its own.
void leaveScreen();

}  // namespace quillmere::screen
