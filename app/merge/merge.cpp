#include "merge/merge.hpp"

#include "merge/additions.hpp"
#include "merge/block.hpp"
#include "merge/comparison.hpp"
#include "merge/history.hpp"
#include "merge/questions.hpp"
#include "merge/under_way.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::merge {
namespace {

/// The copy of a block that a state has, current or in the history; null when it has none.
const Block* findBlock(const QuillmereState& state, const Identifier& id)
{
    if (state.currentBlock && state.currentBlock->id == id) {
        return &*state.currentBlock;
    }
    const auto found = std::find_if(state.blockHistory.begin(), state.blockHistory.end(),
                                    [&](const Block& block) { return block.id == id; });
    return found != state.blockHistory.end() ? &*found : nullptr;
}

WorkAhead workAheadIn(const QuillmereState& state)
{
    const bool hasSession =
        state.workflowState == WorkflowState::focusing || state.workflowState == WorkflowState::sessionReview;
    const WorkSession* const session = hasSession ? state.currentSession() : nullptr;
    return {.currentSession = session ? std::optional(session->id) : std::nullopt,
            .anotherSession = state.workflowState == WorkflowState::breaking ||
                              state.workflowState == WorkflowState::sessionPlanning};
}

/// When each side has finished the session that the other is at, the work goes on behind it.
void leaveFinishedSession(QuillmereState& state)
{
    const WorkSession* const session = state.currentSession();
    if (state.workflowState == WorkflowState::focusing && session && session->endedAt) {
        state.workflowState = WorkflowState::sessionReview;
    }
    if (state.workflowState == WorkflowState::sessionReview && session && session->review) {
        state.workflowState =
            state.currentBlock->hasCyclesLeft() ? WorkflowState::sessionPlanning : WorkflowState::blockReview;
    }
}

/// Copies the work under way, and joins its block with the other side's copy of it.
void takeWork(QuillmereState& state, const QuillmereState& from, const QuillmereState& other)
{
    state.workflowState = from.workflowState;
    state.plannedNextSession = from.plannedNextSession;
    state.breakStartedAt = from.breakStartedAt;
    state.breakExtensionSeconds = from.breakExtensionSeconds;
    state.breakEndNotifiedAt = from.breakEndNotifiedAt;
    state.currentBlock = from.currentBlock;
    const Block* const copy = from.currentBlock ? findBlock(other, from.currentBlock->id) : nullptr;
    if (copy && *copy != *from.currentBlock) {
        state.currentBlock =
            joined({*from.currentBlock, from.updatedAt}, {*copy, other.updatedAt}, workAheadIn(from));
        leaveFinishedSession(state);
    }
}

/// What a side brings to the history: with its current block, where another is under way and the history has
/// room for it, since it has sessions or the other side has it there already.
Past pastOf(const QuillmereState& side, const QuillmereState& other, const QuillmereState& merged)
{
    Past past{.side = side, .left = std::nullopt};
    if (!side.currentBlock || (merged.currentBlock && merged.currentBlock->id == side.currentBlock->id)) {
        return past;
    }
    if (!side.currentBlock->sessions.empty() || findBlock(other, side.currentBlock->id)) {
        past.left = leftBehind({*side.currentBlock, side.updatedAt});
    }
    return past;
}

}  // namespace

MergeResult merge(const QuillmereState& a, const QuillmereState& b)
{
    const UnderWay race = underWay(a, b);
    QuillmereState state =
        QuillmereState{.id = std::min(a.id, b.id),
                       .workflowState = WorkflowState::idle,
                       .currentBlock = std::nullopt,
                       .blockHistory = {},
                       .plannedNextSession = std::nullopt,
                       .breakStartedAt = std::nullopt,
                       .breakExtensionSeconds = 0,
                       .breakEndNotifiedAt = std::nullopt,
                       .agentQuestions = mergedQuestions(a.agentQuestions, b.agentQuestions),
                       .updatedAt = std::max(a.updatedAt, b.updatedAt)};
    if (race.from) {
        takeWork(state, *race.from, race.from == &a ? b : a);
    }
    const std::optional<Identifier> current =
        state.currentBlock ? std::optional(state.currentBlock->id) : std::nullopt;
    state.blockHistory = mergedHistory(pastOf(a, b, state), pastOf(b, a, state), current);

    MergeResult result{.state = std::move(state),
                       .a = {},
                       .b = {},
                       .blocksCompeted = race.loser != nullptr,
                       .identifiersDiffer = a.id != b.id,
                       .setAside = {}};
    result.a = {.isWhole = result.state == a, .onlyGains = onlyAdds(result.state, a)};
    result.b = {.isWhole = result.state == b, .onlyGains = onlyAdds(result.state, b)};
    if (race.loser && race.loser->currentBlock->sessions.empty() &&
        !findBlock(result.state, race.loser->currentBlock->id)) {
        result.setAside.push_back(*race.loser->currentBlock);
    }
    return result;
}

}  // namespace quillmere::merge
