// The times of a block in words.
#pragma once

#include "base/text/local_time.hpp"

#include <quillmere/records/block.hpp>

#include <string>

namespace quillmere::work {

/// "8 × 25 min, until 13:10" for a block that begins now, "8 × 25 min, from 14:30 until 18:30" for one with a
/// planned start. Local times, as short as they are clear at the present. The last break counts, as in
/// Block::plannedEnd.
std::string timesText(const Block& block, const base::SeenFrom& here);

}  // namespace quillmere::work
