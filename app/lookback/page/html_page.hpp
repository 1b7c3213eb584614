// The look back as one page for a browser.
#pragma once

#include "figures/look_back.hpp"
#include "lookback/contents.hpp"

#include <cstddef>
#include <limits>
#include <string>

namespace quillmere::lookback {

/// The blocks that the page tells whole, unless all are asked for: what a browser opens at once.
inline constexpr std::size_t usualBlocksOnPage = 100;
inline constexpr std::size_t allBlocksOnPage = std::numeric_limits<std::size_t>::max();

struct PageScope {
    std::size_t blocks = usualBlocksOnPage;  ///< told whole at the most, the newest
    Contents contents = {};                  ///< those that the figures were made from
};

/// An HTML document that is also well-formed XML. It is complete in itself: it loads nothing and runs no
/// script. It follows the colour scheme of the system and the width of the screen, and every chart has a
/// table of its figures.
std::string htmlPage(const figures::LookBack& look, const PageScope& scope = {});

}  // namespace quillmere::lookback
