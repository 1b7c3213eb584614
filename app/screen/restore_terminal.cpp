#include "screen/restore_terminal.hpp"

#include "screen/interruptible_write.hpp"

// Functions, no macros, as far as there is the choice.
#define NCURSES_NOMACROS
#include <curses.h>
#include <term.h>
#include <unistd.h>

// Macros of curses that would change what is written below.
#undef columns
#undef lines
#undef tab

namespace quillmere::screen {
namespace {

int writeByte(int byte)
{
    const char character = static_cast<char>(byte);
    writeToTerminal({&character, 1});
    return byte;
}

/// A capability that is a text; null where the terminal has none.
const char* capability(const char* name)
{
    const char* const text = ::tigetstr(name);
    return text == reinterpret_cast<const char*>(-1) ? nullptr : text;
}

}  // namespace

void writeToTerminal(std::string_view sequence)
{
    while (!sequence.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, sequence.data(), sequence.size());
        if (written <= 0) {
            return;  // a terminal that is gone needs nothing
        }
        sequence.remove_prefix(static_cast<std::size_t>(written));
    }
}

void leaveScreen()
{
    const InterruptibleWrite writing;
    ::endwin();
    writeToTerminal(markNoPastes);
    // Where there is no second screen to come from, the picture stays; the cursor is in its last row.
    const char* const clearRow = capability("el");
    if (!capability("rmcup") && clearRow) {
        ::tputs(clearRow, 1, writeByte);
    }
}

}  // namespace quillmere::screen
