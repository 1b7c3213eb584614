#include "screen/terminal/restore_terminal.hpp"

#include "screen/terminal/curses.hpp"
#include "screen/terminal/interruptible_write.hpp"

#include <unistd.h>

namespace quillmere::screen {
namespace {

int writeByte(int byte)
{
    const char character = static_cast<char>(byte);
    writeToTerminal({&character, 1});
    return byte;
}

/// A string capability; null when the terminal lacks it.
const char* capability(const char* name)
{
    const char* const text = curses().tigetstr(name);
    return text == reinterpret_cast<const char*>(-1) ? nullptr : text;
}

}  // namespace

void writeToTerminal(std::string_view sequence)
{
    while (!sequence.empty()) {
        const ssize_t written = ::write(STDOUT_FILENO, sequence.data(), sequence.size());
        if (written <= 0) {
            return;  // the terminal is gone
        }
        sequence.remove_prefix(static_cast<std::size_t>(written));
    }
}

void leaveScreen()
{
    const InterruptibleWrite writing;
    curses().endwin();
    writeToTerminal(reportNoMouse);
    writeToTerminal(markNoPastes);
    writeToTerminal(bringTitleBack);
    // Without an alternate screen the picture stays visible, with the cursor in its last row.
    const char* const clearRow = capability("el");
    if (!capability("rmcup") && clearRow) {
        curses().tputs(clearRow, 1, writeByte);
    }
}

}  // namespace quillmere::screen
