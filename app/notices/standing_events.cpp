#include "notices/standing_events.hpp"

#include "work/state_change.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::notices {
namespace {

/// The instant is part of the key because a session that goes on, and a break that is lengthened, end again.
std::string keyAt(std::string_view name, const Identifier& id, Instant at)
{
    return std::string(name) + "-" + id.text() + "-" + std::to_string(wholeSeconds(at.secondsSince1970()));
}

/// The event of the work: at most one, since each belongs to a workflow state of its own.
std::optional<StandingEvent> standingWork(const QuillmereState& state)
{
    using Kind = work::EventKind;
    if (!state.currentBlock) {
        return std::nullopt;
    }
    const Block& block = *state.currentBlock;
    const WorkSession* session = state.currentSession();
    const auto event = [&](Kind kind, std::string key, Instant at) {
        return StandingEvent{.kind = kind,
                             .key = std::move(key),
                             .at = at,
                             .text = WidgetSnapshot::make(state, at).intendedOutcome};
    };
    switch (state.workflowState) {
        case WorkflowState::sessionReview:
            if (session && timeRanOut(*session)) {
                return event(Kind::focusEnded, keyAt("focus", session->id, *session->endedAt),
                             *session->endedAt);
            }
            break;
        case WorkflowState::breaking:
            if (const auto& at = state.breakEndNotifiedAt) {
                return event(Kind::breakEnded, keyAt("break", block.id, *at), *at);
            }
            break;
        case WorkflowState::sessionPlanning:
            if (work::beganBySchedule(block) && !session) {
                const Instant at = *block.scheduledStartTriggeredAt;
                return event(Kind::blockStarted, keyAt("block", block.id, at), at);
            }
            break;
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::focusing:
        case WorkflowState::blockReview:
        case WorkflowState::complete: break;
    }
    return std::nullopt;
}

}  // namespace

std::vector<StandingEvent> standingEvents(const QuillmereState& state)
{
    std::vector<StandingEvent> events;
    if (std::optional<StandingEvent> work = standingWork(state)) {
        events.push_back(*std::move(work));
    }
    for (const AgentQuestion& question : state.openQuestions()) {
        events.push_back({.kind = work::EventKind::questionRaised,
                          .key = "question-" + question.id.text(),
                          .at = question.createdAt,
                          .text = question.question});
    }
    return events;
}

std::vector<std::string> keysOf(const std::vector<StandingEvent>& events)
{
    std::vector<std::string> keys;
    for (const StandingEvent& event : events) {
        keys.push_back(event.key);
    }
    return keys;
}

bool mayBeDelivered(const StandingEvent& event, const QuillmereState& state)
{
    return event.kind != work::EventKind::questionRaised || state.interruptible();
}

}  // namespace quillmere::notices
