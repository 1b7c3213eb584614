// The answers in a terminal.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <string>
#include <vector>

namespace quillmere::lookback {

/// For each question: it as a heading, its answer in a sentence and in tables.
std::vector<std::string> answerLines(const figures::LookBack& look, const TerminalPage& page);

}  // namespace quillmere::lookback
