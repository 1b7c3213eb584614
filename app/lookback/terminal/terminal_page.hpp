// The page that a terminal offers.
#pragma once

#include "base/text/style.hpp"

#include <cstddef>

namespace quillmere::lookback {

struct TerminalPage {
    base::Style style;
    std::size_t width;  ///< in columns
    bool drawsBlocks;   ///< block elements of Unicode; otherwise ASCII only
};

/// The width of a page in so many columns: within the bounds of readable charts.
std::size_t widthOfPage(std::size_t columns);

/// The page of this process: as wide as the terminal within bounds, 80 columns where the output is no
/// terminal. Block elements where the terminal uses UTF-8.
TerminalPage terminalPage(const base::Style& style, bool outputIsTerminal);

}  // namespace quillmere::lookback
