#include "work/changes/parts.hpp"
#include "work/state_change.hpp"

namespace quillmere::work {
namespace {

using enum ChangeKind;

/// How far a current block has come.
enum class Stage { inPlanning, waiting, inWork };

Stage stageOf(const QuillmereState& state)
{
    if (state.workflowState == WorkflowState::blockPlanning) {
        return Stage::inPlanning;
    }
    const bool waits = state.workflowState == WorkflowState::idle && state.currentBlock->plannedStart;
    return waits ? Stage::waiting : Stage::inWork;
}

/// The change that brought the block of the state to its stage.
Change arrival(const QuillmereState& state)
{
    const Block& block = *state.currentBlock;
    Change change{.kind = blockBegun, .text = nameOf(block)};
    switch (stageOf(state)) {
        case Stage::inPlanning: change.kind = blockOpened; break;
        case Stage::waiting:
            change.kind = blockScheduled;
            change.at = block.plannedStart;
            break;
        case Stage::inWork:
            if (beganBySchedule(block)) {
                change.kind = scheduledBlockStarted;
                change.at = block.scheduledStartTriggeredAt;
            } else if (block.scheduledStartTriggeredAt) {
                change.kind = scheduledBlockBegun;
            }
            break;
    }
    return change;
}

/// The block is the current one in both states.
void addSameBlock(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    const Block& earlier = *before.currentBlock;
    const Block& later = *after.currentBlock;
    const Stage stage = stageOf(before);
    if (stage != stageOf(after) || (stage == Stage::waiting && earlier.plannedStart != later.plannedStart)) {
        changes.push_back(arrival(after));
    }
    const std::string fields = differingFields<Block>(earlier, later, blockFields);
    if (!fields.empty() && (stage != Stage::inPlanning || stageOf(after) == stage)) {
        changes.push_back({.kind = blockChanged, .text = fields});
    }
    addSessions(changes, earlier.sessions, later.sessions);
    if (before.workflowState != after.workflowState && after.workflowState == WorkflowState::blockReview &&
        later.hasCyclesLeft()) {
        changes.push_back({.kind = blockEndedEarly, .text = nameOf(later)});
    }
}

/// The finished blocks, the oldest first.
void addHistory(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    const ById<Block> earlier = byId(before.blockHistory);
    const ById<Block> later = byId(after.blockHistory);
    for (auto block = before.blockHistory.rbegin(); block != before.blockHistory.rend(); ++block) {
        const bool isCurrent = after.currentBlock && after.currentBlock->id == block->id;
        if (!later.contains(block->id) && !isCurrent) {
            changes.push_back({.kind = finishedBlockDeleted, .text = nameOf(*block)});
        }
    }
    for (auto block = after.blockHistory.rbegin(); block != after.blockHistory.rend(); ++block) {
        const auto known = earlier.find(block->id);
        if (known == earlier.end()) {
            if (before.currentBlock && before.currentBlock->id == block->id) {
                addSessions(changes, before.currentBlock->sessions, block->sessions);
            }
            changes.push_back({.kind = blockFinished, .text = nameOf(*block)});
        } else if (*known->second != *block) {
            changes.push_back({.kind = finishedBlockChanged, .text = nameOf(*block)});
        }
    }
}

/// The block of `before` that is in work no more, and not finished either.
void addLostBlock(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    const Block& block = *before.currentBlock;
    if (!recordIn(after.blockHistory, block.id)) {
        const bool isInWork = stageOf(before) == Stage::inWork;
        changes.push_back({.kind = isInWork ? blockDropped : blockCancelled, .text = nameOf(block)});
    }
}

/// The block of `after` that was not the current one before.
void addNewBlock(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    const Block& block = *after.currentBlock;
    if (const Block* const finished = recordIn(before.blockHistory, block.id)) {
        addSessions(changes, finished->sessions, block.sessions);
        changes.push_back({.kind = blockTakenUpAgain, .text = nameOf(block)});
    } else {
        changes.push_back(arrival(after));
        addSessions(changes, {}, block.sessions);
    }
}

bool plansNewBlock(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::blockPlanning && !state.currentBlock;
}

}  // namespace

std::string nameOf(const Block& block)
{
    for (const Outcome& outcome : block.outcomes) {
        if (!outcome.title.empty()) {
            return outcome.title;
        }
    }
    return {};
}

void addBlocks(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    const bool isSame =
        before.currentBlock && after.currentBlock && before.currentBlock->id == after.currentBlock->id;
    if (before.blockHistory != after.blockHistory) {
        addHistory(changes, before, after);
    }
    if (isSame) {
        addSameBlock(changes, before, after);
        return;
    }
    if (before.currentBlock) {
        addLostBlock(changes, before, after);
    }
    if (after.currentBlock) {
        addNewBlock(changes, before, after);
    } else if (plansNewBlock(after) && !plansNewBlock(before)) {
        changes.push_back({.kind = planningBegun});
    } else if (plansNewBlock(before) && after.workflowState == WorkflowState::idle && changes.empty()) {
        changes.push_back({.kind = planningGivenUp});
    }
}

}  // namespace quillmere::work
