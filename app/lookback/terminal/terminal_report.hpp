// The look back in a terminal, with charts of characters.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <string>

namespace quillmere::lookback {

/// Ends with a line break. No line is wider than the page, if that has at least 48 columns.
std::string terminalReport(const figures::LookBack& look, const TerminalPage& page);

}  // namespace quillmere::lookback
