#include "amendments/running_session.hpp"

#include <quillmere/records/base/checked_arithmetic.hpp>

#include <algorithm>

namespace quillmere::amendments {

Instant earliestEnd(const WorkSession& session)
{
    return session.startedAt + session.accumulatedPausedSeconds;
}

std::int64_t usedSeconds(const WorkSession& session, Instant at)
{
    const Instant reference = session.pausedAt.value_or(at);
    const std::int64_t used = checkedDifference(wholeSeconds(reference - session.startedAt),
                                                wholeSeconds(session.accumulatedPausedSeconds));
    return std::max<std::int64_t>(used, 0);
}

}  // namespace quillmere::amendments
