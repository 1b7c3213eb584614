#include "work/slept_through.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

#include <algorithm>

namespace quillmere::work {
namespace {

/// Read as typed: a time with a date has a space in it.
std::string typed(Instant instant, Instant now)
{
    const std::string text = base::localTextSeenFrom(now, instant);
    return text.find(' ') == std::string::npos ? text : "\"" + text + "\"";
}

}  // namespace

std::optional<SleptThrough> sleptThrough(const base::Sleep& sleep, const QuillmereState& state)
{
    const WorkSession* const session = state.currentSession();
    if (!session || session->startedAt >= sleep.to) {
        return std::nullopt;
    }
    const bool runs = state.workflowState == WorkflowState::focusing && !session->pausedAt;
    const bool ranOut = state.workflowState == WorkflowState::sessionReview && timeRanOut(*session) &&
                        *session->endedAt > sleep.from && *session->endedAt <= sleep.to;
    if (!runs && !ranOut) {
        return std::nullopt;
    }
    return SleptThrough{.session = session->id,
                        .sleep = {.from = std::max(sleep.from, session->startedAt),
                                  .to = ranOut ? *session->endedAt : sleep.to},
                        .isOver = ranOut,
                        .pausedSeconds = session->accumulatedPausedSeconds,
                        .endedAt = session->endedAt};
}

bool stands(const SleptThrough& slept, const QuillmereState& state)
{
    const WorkSession* const session = state.currentSession();
    const WorkflowState expected = slept.isOver ? WorkflowState::sessionReview : WorkflowState::focusing;
    return session && state.workflowState == expected && session->id == slept.session &&
           session->accumulatedPausedSeconds == slept.pausedSeconds && session->endedAt == slept.endedAt;
}

std::string sleepText(const SleptThrough& slept, const base::SeenFrom& here)
{
    return "The computer slept from " + base::localTextWithin(here, slept.sleep.from) + " to " +
           base::localTextWithin(here, slept.sleep.to) + ".";
}

std::string sleepCommands(const SleptThrough& slept, Instant now)
{
    const std::string from = typed(slept.sleep.from, now);
    const std::string pause =
        "quillmere away --from " + from + " --to " + typed(slept.sleep.to, now) + " makes it a pause; ";
    return (slept.isOver ? "" : pause) + "quillmere end --at " + from + " ends the session then.";
}

}  // namespace quillmere::work
