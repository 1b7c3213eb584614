#include "merge/block.hpp"

#include "merge/comparison.hpp"
#include "merge/last_start.hpp"
#include "merge/session.hpp"
#include "merge/united.hpp"

#include <algorithm>
#include <iterator>
#include <tuple>
#include <utility>

namespace quillmere::merge {
namespace {

/// The fields of a block that one side alone decides, without those that are joined or may grow.
Block decidedByOneSide(Block block)
{
    block.sessions.clear();
    block.reflection.reset();
    block.cycleCount = 0;
    return block;
}

/// Nothing in a block shows when its schedule was edited. Until the first session the later file has the
/// later edit.
std::strong_ordering compareEdits(const BlockCopy& one, const BlockCopy& other)
{
    const bool anySession = !one.block.sessions.empty() || !other.block.sessions.empty();
    return anySession ? std::strong_ordering::equal : compare(one.savedAt, other.savedAt);
}

/// Which side decides those fields.
std::strong_ordering compareScalars(const BlockCopy& one, const BlockCopy& other)
{
    const std::strong_ordering order = firstDecided({
        compare(one.block.completedAt, other.block.completedAt),
        compare(lastStartIn(one.block), lastStartIn(other.block)),
        compareEdits(one, other),
    });
    if (isDecided(order)) {
        return order;
    }
    const std::strong_ordering byBytes =
        compareBytes(decidedByOneSide(one.block), decidedByOneSide(other.block));
    return isDecided(byBytes) ? byBytes : one.block.cycleCount <=> other.block.cycleCount;
}

/// With the greater number: a copy that was merged before has counted more sessions.
WorkSession further(const WorkSession& one, const WorkSession& other)
{
    WorkSession session = compareProgress(one, other) < 0 ? other : one;
    session.number = std::max(one.number, other.number);
    return session;
}

bool isBefore(const WorkSession& one, const WorkSession& other)
{
    const auto key = [](const WorkSession& session) {
        return std::tuple(session.number, session.startedAt.secondsSince1970(), session.id);
    };
    return key(one) < key(other);
}

/// The sessions in their order, but with the current one last.
std::vector<const WorkSession*> withLast(const std::vector<WorkSession>& sessions,
                                         const std::optional<Identifier>& last)
{
    std::vector<const WorkSession*> pointers = pointersTo(sessions);
    std::stable_partition(pointers.begin(), pointers.end(),
                          [&](const WorkSession* session) { return session->id != last; });
    return pointers;
}

/// When the side was saved that has this session; the earlier time when both have it.
Instant savedAt(const WorkSession& session, const BlockCopy& a, const BlockCopy& b)
{
    const auto has = [&](const BlockCopy& copy) {
        return std::any_of(
            copy.block.sessions.begin(), copy.block.sessions.end(),
            [&](const WorkSession& own) { return own.id == session.id && isSame(own, session); });
    };
    return !has(b) ? a.savedAt : !has(a) ? b.savedAt : std::min(a.savedAt, b.savedAt);
}

std::vector<WorkSession> joinedSessions(const BlockCopy& a, const BlockCopy& b,
                                        const std::optional<Identifier>& current)
{
    std::vector<WorkSession> sessions =
        united(withLast(a.block.sessions, current), withLast(b.block.sessions, current), further, isBefore);
    std::stable_partition(sessions.begin(), sessions.end(),
                          [&](const WorkSession& session) { return session.id != current; });
    std::int64_t number = 0;
    for (WorkSession& session : sessions) {
        if (!session.endedAt && session.id != current) {
            endAbandoned(session, savedAt(session, a, b));
        }
        session.number = ++number;
    }
    return sessions;
}

}  // namespace

Block joined(const BlockCopy& a, const BlockCopy& b, const WorkAhead& ahead)
{
    const bool decidesB = compareScalars(a, b) < 0;
    const Block& deciding = decidesB ? b.block : a.block;
    const Block& other = decidesB ? a.block : b.block;
    Block block = deciding;
    block.reflection = deciding.reflection ? deciding.reflection : other.reflection;
    block.sessions = joinedSessions(a, b, ahead.currentSession);
    const std::int64_t needed = std::ssize(block.sessions) + (ahead.anotherSession ? 1 : 0);
    block.cycleCount = std::max(block.cycleCount, needed);
    return block;
}

Block leftBehind(const BlockCopy& copy)
{
    Block block = copy.block;
    for (WorkSession& session : block.sessions) {
        if (!session.endedAt) {
            endAbandoned(session, copy.savedAt);
        }
    }
    return block;
}

}  // namespace quillmere::merge
