// Counted things in words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillmere::base {

/// "1 question", "4 questions": for a thing whose plural ends with an s.
std::string countText(std::int64_t count, std::string_view thing);

/// The last line of a list that is cut off: "and 3 more".
std::string moreText(std::int64_t count);

}  // namespace quillmere::base
