#include "work/state_change.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

namespace quillmere::work {

LastShown LastShown::of(const QuillmereState& state)
{
    const WorkSession* const session = state.currentSession();
    return {
        .workflowState = state.workflowState,
        .block = state.currentBlock ? std::optional(state.currentBlock->id) : std::nullopt,
        .startTriggeredAt = state.currentBlock ? state.currentBlock->scheduledStartTriggeredAt : std::nullopt,
        .session = session ? std::optional(session->id) : std::nullopt,
        .pausedAt = session ? session->pausedAt : std::nullopt,
        .breakEndNotifiedAt = state.breakEndNotifiedAt,
    };
}

bool beganBySchedule(const Block& block) { return block.scheduledStartTriggeredAt && block.plannedStart; }

std::vector<workspace::Event> newsSince(const LastShown& before, const QuillmereState& after)
{
    const LastShown now = LastShown::of(after);
    std::vector<workspace::Event> events;
    if (now.block && now.block == before.block && !before.startTriggeredAt &&
        beganBySchedule(*after.currentBlock)) {
        events.push_back({workspace::Event::Kind::blockStarted, *now.startTriggeredAt});
    }
    if (before.workflowState == WorkflowState::focusing && now.workflowState != WorkflowState::focusing &&
        now.session && now.session == before.session && timeRanOut(*after.currentSession())) {
        events.push_back({workspace::Event::Kind::focusEnded, *after.currentSession()->endedAt});
    }
    if (now.breakEndNotifiedAt && now.breakEndNotifiedAt != before.breakEndNotifiedAt) {
        events.push_back({workspace::Event::Kind::breakEnded, *now.breakEndNotifiedAt});
    }
    return events;
}

}  // namespace quillmere::work
