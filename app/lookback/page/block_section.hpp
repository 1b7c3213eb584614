// The blocks of the page, each told whole.
#pragma once

#include "figures/look_back.hpp"

#include <cstddef>
#include <string>

namespace quillmere::lookback {

/// The blocks that the sessions of the look back belong to, the newest first and `most` of them at the most.
/// Each is folded under a line with its day, its outcomes and the signs of its sessions, so that the search
/// of the browser finds its words.
std::string blockSection(const figures::LookBack& look, std::size_t most);

}  // namespace quillmere::lookback
