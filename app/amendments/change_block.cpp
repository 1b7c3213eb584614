#include "amendments/change_block.hpp"

#include "amendments/limits.hpp"
#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/running_session.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/base/checked_arithmetic.hpp>

#include <algorithm>
#include <utility>

namespace quillmere::amendments {
namespace {

void requireFocusLength(const BlockChange& change)
{
    if (change.focusDurationSeconds &&
        !isWithin(*change.focusDurationSeconds, shortestDuration, longestDuration)) {
        throw Refusal("A focus session cannot have this length.",
                      lengthsBetween(shortestDuration, longestDuration));
    }
}

void requireBreakLength(const BlockChange& change, const QuillmereState& state, Instant now)
{
    if (!change.breakDurationSeconds) {
        return;
    }
    // The timer of a break is present in a break only, and rounds its whole length down.
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    const bool isBreak = timer && timer->kind == TimerKind::breakTime;
    const double passed =
        isBreak ? static_cast<double>(timer->elapsedSeconds) - state.breakExtensionSeconds : 0;
    const double shortest = std::max(passed, shortestDuration);
    if (!isWithin(*change.breakDurationSeconds, shortest, longestDuration)) {
        throw Refusal(isBreak
                          ? "The running break cannot become shorter than what has passed of it, nor longer "
                            "than 366 days."
                          : "A break cannot have this length.",
                      lengthsBetween(shortest, longestDuration));
    }
}

/// The command that ends the block instead.
std::string_view endOfBlock(WorkflowState workflowState)
{
    switch (workflowState) {
        case WorkflowState::blockReview: return "reflect";
        case WorkflowState::focusing:
        case WorkflowState::sessionReview: return "review --finish";
        case WorkflowState::idle:
        case WorkflowState::blockPlanning:
        case WorkflowState::sessionPlanning:
        case WorkflowState::breaking:
        case WorkflowState::complete: break;
    }
    return "finish";
}

void requireCycles(const BlockChange& change, const QuillmereState& state)
{
    const auto begun = std::ssize(state.currentBlock->sessions);
    if (!change.cycleCount || (*change.cycleCount > begun && *change.cycleCount <= mostCycles)) {
        return;
    }
    if (begun == 0) {
        throw Refusal("A block cannot have this number of sessions. Possible: 1 to " +
                      std::to_string(mostCycles) + ".");
    }
    const std::string range =
        begun < mostCycles ? std::to_string(begun + 1) + " to " + std::to_string(mostCycles) + ", or " : "";
    throw Refusal("The block cannot have this number of sessions, since it has begun " +
                  std::to_string(begun) + ". Possible: " + range +
                  std::string(endOfBlock(state.workflowState)) + ", which ends the block.");
}

/// The end of a break that is no more over is to be announced again.
void forgetAnnouncedEnd(QuillmereState& state, Instant now)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    if (timer && timer->kind == TimerKind::breakTime && !timer->hasRunOut()) {
        state.breakEndNotifiedAt.reset();
    }
}

}  // namespace

void changeBlock(QuillmereState& state, BlockChange change, Instant now)
{
    if (!isPossible(Kind::change, state)) {
        refuseHere("No block has begun.");
    }
    requireOutcomes(change.texts, *state.currentBlock, state.plannedNextSession);
    requireFocusLength(change);
    requireBreakLength(change, state, now);
    requireCycles(change, state);

    Block& block = *state.currentBlock;
    setTexts(block, std::move(change.texts));
    block.focusDurationSeconds = change.focusDurationSeconds.value_or(block.focusDurationSeconds);
    block.breakDurationSeconds = change.breakDurationSeconds.value_or(block.breakDurationSeconds);
    block.cycleCount = change.cycleCount.value_or(block.cycleCount);
    if (change.breakDurationSeconds) {
        forgetAnnouncedEnd(state, now);
    }
    if (change.cycleCount && state.workflowState == WorkflowState::blockReview) {
        state.workflowState = WorkflowState::sessionPlanning;
    }
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
