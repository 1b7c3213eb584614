// When something was last begun in a block.
#pragma once

#include <quillmere/records/block.hpp>

namespace quillmere::merge {

/// The latest of the block's creation, its start by schedule and the starts of its sessions. Joining two
/// copies never makes it earlier, as it may a pause or an end: an abandoned session ends earlier than it was
/// worked on. A question or a tick does not move it, as they do `updatedAt`.
Instant lastStartIn(const Block& block);

}  // namespace quillmere::merge
