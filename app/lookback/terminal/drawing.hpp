// The characters that charts in a terminal consist of.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/terminal/terminal_page.hpp"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillmere::lookback {

struct Glyphs {
    std::array<std::string_view, 8> eighths;  ///< a column filled by 1/8, 2/8, …, 8/8
    std::array<std::string_view, figures::HeatMap::levels + 1> heat;  ///< the level 0 first
    std::array<std::string_view, 3> completions;                      ///< by CompletionResult
};

const Glyphs& glyphsOf(const TerminalPage& page);

std::string repeated(std::string_view text, std::size_t count);

/// The text, followed by as many spaces as it takes to have `width` columns.
std::string filledUp(std::string text, std::size_t width);

/// As base::cutToColumns; the ellipsis is a full stop on a page without block elements.
std::string cutTo(std::size_t width, const std::string& text, const TerminalPage& page);

/// A bar that fills a share of the width, 0 to 1.
std::string barOf(double share, std::size_t width, const Glyphs& glyphs);

/// The title of a chart, with the empty line above it.
std::string heading(const std::string& text, const TerminalPage& page);

}  // namespace quillmere::lookback
