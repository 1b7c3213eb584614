// Removes a finished block from earlier versions of the state.
#pragma once

#include "workspace/versions.hpp"

#include <quillmere/records/identifier.hpp>

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmere::workspace {

struct Forgotten {
    std::size_t rewritten = 0;             ///< versions that had the block in their history
    std::size_t deleted = 0;               ///< versions in which it was in work
    std::vector<std::int64_t> unreadable;  ///< numbers of versions that may still hold it
};

/// Rewrites every version without the block; deletes those in which it is the current block, since no work
/// could go on there without it. Only for the holder of the workspace's lock. Throws `std::system_error`;
/// versions that were not reached then still hold the block.
Forgotten forget(const Identifier& block, const Versions& versions);

/// The identifiers of the blocks in the versions that can be read, each once: of the newest version first.
std::vector<Identifier> blocksInVersions(const Versions& versions);

}  // namespace quillmere::workspace
