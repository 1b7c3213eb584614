#include "lookback/terminal/terminal_page.hpp"

#include "base/system/terminal_charset.hpp"
#include "base/system/terminal_width.hpp"

#include <algorithm>
#include <cstddef>

namespace quillmere::lookback {
namespace {

constexpr std::size_t usualWidth = 80;
constexpr std::size_t leastWidth = 48;  // of the charts
constexpr std::size_t mostWidth = 120;  // longer bars are hard to compare

}  // namespace

std::size_t widthOfPage(std::size_t columns) { return std::clamp(columns, leastWidth, mostWidth); }

TerminalPage terminalPage(const base::Style& style, bool outputIsTerminal)
{
    const std::size_t width = outputIsTerminal ? base::terminalWidth().value_or(usualWidth) : usualWidth;
    return {.style = style, .width = widthOfPage(width), .drawsBlocks = base::terminalUsesUtf8()};
}

}  // namespace quillmere::lookback
