// The look back as one page for a browser.
#pragma once

#include "figures/look_back.hpp"

#include <string>

namespace quillmere::lookback {

/// An HTML document that is well-formed XML too. It holds all it needs, loads nothing and runs no script. It
/// is light or dark as the reader's system is, narrow on a phone, and every chart has its figures in a table.
std::string htmlPage(const figures::LookBack& look);

}  // namespace quillmere::lookback
