// The parts of the page that show figures.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/contents.hpp"

#include <string>

namespace quillmere::lookback {

/// The most important figures, in large.
std::string keyFigures(const figures::LookBack& look);

/// Everything else: the answers, charts with their tables, and the last sessions.
std::string pageSections(const figures::LookBack& look, const Contents& contents);

}  // namespace quillmere::lookback
