// The answers on the page.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/contents.hpp"

#include <string>

namespace quillmere::lookback {

/// A section for each question, with its answer in a sentence and in tables with bars.
std::string answerSections(const figures::LookBack& look, const Contents& contents);

}  // namespace quillmere::lookback
