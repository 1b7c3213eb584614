#include "work/changes/parts.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

namespace quillmere::work {
namespace {

using enum ChangeKind;

void addPauses(Changes& changes, const WorkSession& before, const WorkSession& after)
{
    const double gained = after.accumulatedPausedSeconds - before.accumulatedPausedSeconds;
    if (before.pausedAt && before.pausedAt != after.pausedAt && !after.endedAt) {
        changes.push_back({.kind = focusResumed, .session = after.number});
    } else if (gained > 0 && !before.pausedAt) {
        changes.push_back({.kind = pauseAdded, .session = after.number, .seconds = gained});
    } else if (gained < 0) {
        changes.push_back({.kind = pausesShortened, .session = after.number, .seconds = -gained});
    }
    if (after.pausedAt && before.pausedAt != after.pausedAt) {
        changes.push_back({.kind = focusPaused, .session = after.number});
    }
}

void addLength(Changes& changes, const WorkSession& before, const WorkSession& after)
{
    const double gained = after.plannedDurationSeconds - before.plannedDurationSeconds;
    if (gained > 0) {
        changes.push_back({.kind = focusLengthened, .session = after.number, .seconds = gained});
    } else if (gained < 0) {
        changes.push_back({.kind = focusShortened, .session = after.number, .seconds = -gained});
    }
}

void addEnd(Changes& changes, const WorkSession& before, const WorkSession& after)
{
    if (before.endedAt == after.endedAt) {
        return;
    }
    const ChangeKind kind = !after.endedAt      ? focusWentOn
                            : before.endedAt    ? endMoved
                            : timeRanOut(after) ? focusEnded
                                                : focusEndedEarly;
    changes.push_back({.kind = kind, .session = after.number, .at = after.endedAt});
}

void addReview(Changes& changes, const WorkSession& before, const WorkSession& after)
{
    if (before.review == after.review) {
        return;
    }
    const std::int64_t number = after.number;
    if (before.review && after.review) {
        changes.push_back(
            {.kind = reviewChanged,
             .text = differingFields<SessionReview>(*before.review, *after.review, reviewFields),
             .session = number});
    } else {
        changes.push_back({.kind = after.review ? reviewSaved : reviewRemoved, .session = number});
    }
}

void addSession(Changes& changes, const WorkSession& before, const WorkSession& after)
{
    if (before == after) {
        return;
    }
    const std::size_t known = changes.size();
    if (before.plan != after.plan) {
        changes.push_back({.kind = planChanged,
                           .text = differingFields<SessionPlan>(before.plan, after.plan, planFields),
                           .session = after.number});
    }
    addLength(changes, before, after);
    addPauses(changes, before, after);
    addEnd(changes, before, after);
    addReview(changes, before, after);
    if (changes.size() == known) {
        changes.push_back({.kind = sessionChanged, .session = after.number});
    }
}

/// A session that both began and went on.
void addNewSession(Changes& changes, const WorkSession& session)
{
    changes.push_back({.kind = sessionStarted, .session = session.number});
    WorkSession started = session;
    started.pausedAt.reset();
    started.accumulatedPausedSeconds = 0;
    started.endedAt.reset();
    started.review.reset();
    addSession(changes, started, session);
}

}  // namespace

void addSessions(Changes& changes, const std::vector<WorkSession>& before,
                 const std::vector<WorkSession>& after)
{
    for (const WorkSession& session : before) {
        if (!recordIn(after, session.id)) {
            changes.push_back({.kind = sessionRemoved, .session = session.number});
        }
    }
    for (const WorkSession& session : after) {
        if (const WorkSession* const known = recordIn(before, session.id)) {
            addSession(changes, *known, session);
        } else {
            addNewSession(changes, session);
        }
    }
}

}  // namespace quillmere::work
