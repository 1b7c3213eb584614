#include "base/text/count.hpp"

namespace quillmere::base {

std::string countText(std::int64_t count, std::string_view thing)
{
    return std::to_string(count).append(" ").append(thing).append(count == 1 ? "" : "s");
}

std::string moreText(std::int64_t count) { return "and " + std::to_string(count) + " more"; }

}  // namespace quillmere::base
