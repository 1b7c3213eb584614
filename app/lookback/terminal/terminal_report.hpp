// The look back in a terminal, with charts of characters.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <string>

namespace quillmere::lookback {

// Both end with a line break. No line is wider than the page, if that has at least 48 columns.

/// The answers to all questions, with charts of every unit of time.
std::string terminalReport(const figures::LookBack& look, const TerminalPage& page);

/// The answers in short: at most 23 lines, of which the last says how to see more.
std::string terminalSummary(const figures::LookBack& look, const TerminalPage& page);

}  // namespace quillmere::lookback
