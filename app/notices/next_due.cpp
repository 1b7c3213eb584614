#include "notices/next_due.hpp"

#include "notices/said_again.hpp"
#include "notices/standing_events.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

#include <algorithm>

namespace quillmere::notices {
namespace {

void addTimer(std::vector<Instant>& instants, const workspace::Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    if (!timer || timer->isPaused) {
        return;
    }
    const auto remaining = static_cast<double>(timer->remainingSeconds);
    instants.push_back(situation.now + remaining);
    if (timer->kind == TimerKind::focus) {
        instants.push_back(situation.now + (remaining - secondsAhead));
    }
}

void addSchedule(std::vector<Instant>& instants, const QuillmereState& state)
{
    if (state.workflowState == WorkflowState::idle && state.currentBlock &&
        state.currentBlock->plannedStart) {
        instants.push_back(*state.currentBlock->plannedStart);
    }
}

void addReminders(std::vector<Instant>& instants, const QuillmereState& state,
                  const std::vector<double>& reminderSeconds)
{
    for (const StandingEvent& event : standingEvents(state)) {
        for (const double seconds : reminderSeconds) {
            instants.push_back(event.at + seconds);
        }
    }
}

}  // namespace

std::optional<Instant> nextDue(const workspace::Situation& situation,
                               const std::vector<double>& reminderSeconds)
{
    std::vector<Instant> instants;
    addTimer(instants, situation);
    addSchedule(instants, situation.state);
    addReminders(instants, situation.state, reminderSeconds);
    std::erase_if(instants, [&](Instant instant) { return instant <= situation.now; });
    const auto next = std::min_element(instants.begin(), instants.end());
    return next == instants.end() ? std::nullopt : std::optional(*next);
}

}  // namespace quillmere::notices
