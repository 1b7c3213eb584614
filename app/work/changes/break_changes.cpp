#include "work/changes/parts.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

namespace quillmere::work {
namespace {

using enum ChangeKind;

bool isBreaking(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::breaking && state.breakStartedAt;
}

bool isSameBreak(const QuillmereState& before, const QuillmereState& after)
{
    return isBreaking(before) && isBreaking(after) && before.breakStartedAt == after.breakStartedAt;
}

/// The block, in work or finished; null when it is gone.
const Block* blockIn(const QuillmereState& state, const Identifier& id)
{
    return state.currentBlock && state.currentBlock->id == id ? &*state.currentBlock
                                                              : recordIn(state.blockHistory, id);
}

bool isOverAt(Instant at, const QuillmereState& state)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, at);
    return timer && timer->remainingSeconds <= 0;
}

}  // namespace

void addEndOfBreak(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    if (!isBreaking(before) || isSameBreak(before, after) || !before.currentBlock) {
        return;
    }
    const Block* const block = blockIn(after, before.currentBlock->id);
    const std::size_t sessions = before.currentBlock->sessions.size();
    const bool wentOn = block && block->sessions.size() > sessions;
    // A block that was dropped or brought to its end in a break needs no second sentence.
    if (wentOn || (block && after.workflowState == WorkflowState::sessionPlanning)) {
        const Instant end = wentOn ? block->sessions[sessions].startedAt : after.updatedAt;
        changes.push_back({.kind = isOverAt(end, before) ? breakEnded : breakSkipped});
    }
}

void addBreak(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    if (!isBreaking(after)) {
        return;
    }
    const bool isNew = !isSameBreak(before, after);
    if (isNew && !hasOneOf(changes, {reviewSaved})) {
        changes.push_back({.kind = breakBegun, .at = after.breakStartedAt});
    }
    const double gained = after.breakExtensionSeconds - (isNew ? 0 : before.breakExtensionSeconds);
    if (gained != 0) {
        changes.push_back(
            {.kind = gained > 0 ? breakExtended : breakShortened, .seconds = gained > 0 ? gained : -gained});
    }
    if (after.breakEndNotifiedAt && (isNew || before.breakEndNotifiedAt != after.breakEndNotifiedAt)) {
        changes.push_back({.kind = breakOver, .at = after.breakEndNotifiedAt});
    }
}

}  // namespace quillmere::work
