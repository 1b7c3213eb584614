// The charts of the report in a terminal: lines of characters, each with its title.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <string>

namespace quillmere::lookback {

/// The days of the last year, one column for each week.
std::string heatMapLines(const figures::LookBack& look, const TerminalPage& page);

/// Focus day by day, week by week and month by month.
std::string focusLines(const figures::LookBack& look, const TerminalPage& page);

/// Mean energy and morale, month by month.
std::string ratingLines(const figures::LookBack& look, const TerminalPage& page);

/// Completion by energy and by morale.
std::string completionLines(const figures::LookBack& look, const TerminalPage& page);

}  // namespace quillmere::lookback
