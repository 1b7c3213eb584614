// The look back as one page for a browser.
#pragma once

#include "figures/look_back.hpp"

#include <string>

namespace quillmere::lookback {

/// An HTML document that is also well-formed XML. It is complete in itself: it loads nothing and runs no
/// script. It follows the colour scheme of the system and the width of the screen, and every chart has a
/// table of its figures.
std::string htmlPage(const figures::LookBack& look);

}  // namespace quillmere::lookback
