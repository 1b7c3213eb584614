#include "merge/last_start.hpp"

#include <algorithm>

namespace quillmere::merge {

Instant lastStartIn(const Block& block)
{
    Instant last = std::max(block.createdAt, block.scheduledStartTriggeredAt.value_or(block.createdAt));
    for (const WorkSession& session : block.sessions) {
        last = std::max(last, session.startedAt);
    }
    return last;
}

}  // namespace quillmere::merge
