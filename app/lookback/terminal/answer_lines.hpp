// The answers in a terminal.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <string>

namespace quillmere::lookback {

/// Each question as a heading, with its answer in a sentence and in tables.
std::string answerLines(const figures::LookBack& look, const TerminalPage& page);

}  // namespace quillmere::lookback
