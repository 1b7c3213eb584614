// What there is to draw on.
#include "base/system/terminal_width.hpp"
#include "lookback/terminal_report.hpp"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace quillmere::lookback {
namespace {

constexpr std::size_t usualWidth = 80;
constexpr std::size_t leastWidth = 48;
constexpr std::size_t mostWidth = 120;  // bars that are longer are hard to compare

std::string_view variable(const char* name)
{
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// Whether texts are UTF-8 by the locale: the first of these that is set decides (POSIX).
bool isUtf8Locale()
{
    for (const char* const name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        std::string locale(variable(name));
        if (!locale.empty()) {
            std::transform(locale.begin(), locale.end(), locale.begin(), [](char letter) {
                return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
            });
            return locale.find("utf-8") != std::string::npos || locale.find("utf8") != std::string::npos;
        }
    }
    return false;
}

}  // namespace

TerminalPage terminalPage(const base::Style& style, bool outputIsTerminal)
{
    const std::size_t width = outputIsTerminal ? base::terminalWidth().value_or(usualWidth) : usualWidth;
    return {.style = style, .width = std::clamp(width, leastWidth, mostWidth), .drawsBlocks = isUtf8Locale()};
}

}  // namespace quillmere::lookback
