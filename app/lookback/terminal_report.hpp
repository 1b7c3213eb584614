// The look back in a terminal: charts of characters.
#pragma once

#include "base/text/style.hpp"
#include "figures/look_back.hpp"

#include <cstddef>
#include <string>

namespace quillmere::lookback {

/// What there is to draw on.
struct TerminalPage {
    base::Style style;
    std::size_t width;  ///< in columns
    bool drawsBlocks;   ///< block elements of Unicode; otherwise plain ASCII
};

/// The page of this process: the width of the terminal (the variable COLUMNS, or what the terminal says),
/// 80 columns where nobody knows; block elements where the locale is one of UTF-8.
TerminalPage terminalPage(const base::Style& style, bool outputIsTerminal);

/// The report, a line break at its end. No line is wider than the page, if that has 48 columns.
std::string terminalReport(const figures::LookBack& look, const TerminalPage& page);

}  // namespace quillmere::lookback
