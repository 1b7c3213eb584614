#include "base/system/terminal_width.hpp"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>

namespace quillmere::base {

std::optional<std::size_t> terminalWidth()
{
    const char* const variable = std::getenv("COLUMNS");
    const std::size_t wanted = variable ? std::strtoul(variable, nullptr, 10) : 0;
    if (wanted > 0) {
        return wanted;
    }
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
        return size.ws_col;
    }
    return std::nullopt;
}

}  // namespace quillmere::base
