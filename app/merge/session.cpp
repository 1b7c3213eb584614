#include "merge/session.hpp"

#include "merge/comparison.hpp"

#include <algorithm>

namespace quillmere::merge {
namespace {

WorkSession withNumberOf(WorkSession session, const WorkSession& other)
{
    session.number = other.number;
    return session;
}

}  // namespace

std::strong_ordering compareProgress(const WorkSession& one, const WorkSession& other)
{
    const std::strong_ordering order = firstDecided({
        one.review.has_value() <=> other.review.has_value(),
        one.endedAt.has_value() <=> other.endedAt.has_value(),
        compare(one.accumulatedPausedSeconds, other.accumulatedPausedSeconds),
        compare(one.pausedAt, other.pausedAt),
        compare(one.endedAt, other.endedAt),
    });
    return isDecided(order) ? order : compareBytes(one, withNumberOf(other, one));
}

bool isSame(const WorkSession& one, const WorkSession& other) { return one == withNumberOf(other, one); }

void endAbandoned(WorkSession& session, Instant savedAt)
{
    const Instant plannedEnd =
        session.startedAt + (session.plannedDurationSeconds + session.accumulatedPausedSeconds);
    session.endedAt = std::min({session.pausedAt.value_or(savedAt), plannedEnd, savedAt});
    session.pausedAt.reset();
}

}  // namespace quillmere::merge
