#include "notices/standing_events.hpp"

#include "workspace/catching_up.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::notices {
namespace {

std::string keyAt(std::string_view what, const Identifier& id, Instant at)
{
    return std::string(what) + "-" + id.text() + "-" + std::to_string(wholeSeconds(at.secondsSince1970()));
}

/// Whether the time of an ended session was used up when it ended. Asks the timer as it was at that moment:
/// the session still running, its pauses, the last one too, counted.
bool wasEndedByTimer(const QuillmereState& state, Instant endedAt)
{
    const QuillmereState before{
        .id = state.id,
        .workflowState = WorkflowState::focusing,
        .currentBlock = state.currentBlock,
        .blockHistory = {},  // may be long, and no timer looks at it
        .plannedNextSession = std::nullopt,
        .breakStartedAt = std::nullopt,
        .breakExtensionSeconds = 0,
        .breakEndNotifiedAt = std::nullopt,
        .agentQuestions = {},
        .updatedAt = endedAt,
    };
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(before, endedAt);
    return timer && timer->remainingSeconds < 1;
}

/// What the work has come to: one thing at most, as a state has one workflow state.
std::optional<StandingEvent> standingWork(const QuillmereState& state)
{
    using Kind = StandingEvent::Kind;
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
            if (session && session->endedAt && wasEndedByTimer(state, *session->endedAt)) {
                return event(Kind::focusEnded, "focus-" + session->id.text(), *session->endedAt);
            }
            break;
        case WorkflowState::breaking:
            // Once more after each extension, hence the instant.
            if (const auto& at = state.breakEndNotifiedAt) {
                return event(Kind::breakEnded, keyAt("break", block.id, *at), *at);
            }
            break;
        case WorkflowState::sessionPlanning:
            // One that a person began has no planned start any more.
            if (const auto& at = block.scheduledStartTriggeredAt; at && block.plannedStart && !session) {
                return event(Kind::blockStarted, keyAt("block", block.id, *at), *at);
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

std::string_view eventName(StandingEvent::Kind kind)
{
    switch (kind) {
        case StandingEvent::Kind::focusEnded: return eventName(workspace::Event::Kind::focusEnded);
        case StandingEvent::Kind::breakEnded: return eventName(workspace::Event::Kind::breakEnded);
        case StandingEvent::Kind::blockStarted: return eventName(workspace::Event::Kind::blockStarted);
        case StandingEvent::Kind::questionRaised: break;
    }
    return "question_raised";
}

std::vector<StandingEvent> standingEvents(const QuillmereState& state)
{
    std::vector<StandingEvent> events;
    if (std::optional<StandingEvent> work = standingWork(state)) {
        events.push_back(*std::move(work));
    }
    for (const AgentQuestion& question : state.openQuestions()) {
        events.push_back({.kind = StandingEvent::Kind::questionRaised,
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

bool mayBeTold(const StandingEvent& event, const QuillmereState& state)
{
    return event.kind != StandingEvent::Kind::questionRaised || state.interruptible();
}

}  // namespace quillmere::notices
