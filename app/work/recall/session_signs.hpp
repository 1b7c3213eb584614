// Sessions as signs: done, half, not, running, to come.
#pragma once

#include <quillmere/records/block.hpp>

#include <string>
#include <string_view>

namespace quillmere::work {

/// "✓", "½" or "✗" by the review; "◐" while there is none.
std::string_view signOf(const WorkSession& session);

/// The sessions in order, "·" for those to come: "✓ ½ ◐ · ·". Of many sessions the numbers: "9 ✓ 2 ½ 1 ✗ of
/// 30".
std::string signsOf(const Block& block);

}  // namespace quillmere::work
