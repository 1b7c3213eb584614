#include "work/summarized_work.hpp"

#include "base/refusal.hpp"
#include "workspace/screening.hpp"

#include <cmath>
#include <utility>

namespace quillmere::work {
namespace {

/// The state that the agent's summary follows from, as far as it tells. Nothing of a break.
std::optional<QuillmereState> stateOf(AgentSnapshot agent)
{
    const auto workflowState = fromRawValue<WorkflowState>(agent.workflowState);
    if (!workflowState || *workflowState == WorkflowState::breaking) {
        return std::nullopt;
    }
    return QuillmereState{
        .id = Identifier(Identifier::Octets{}),  // no summary has it, and nothing is shown of it
        .workflowState = *workflowState,
        .currentBlock = std::move(agent.block),
        .blockHistory = {},
        .plannedNextSession = std::move(agent.nextSession),
        .breakStartedAt = {},
        .breakExtensionSeconds = 0,
        .breakEndNotifiedAt = {},
        .agentQuestions = std::move(agent.openQuestions),
        .updatedAt = agent.updatedAt,
    };
}

bool isUsable(const QuillmereState& state)
{
    try {
        workspace::requireUsable(state);
        return true;
    } catch (const base::Refusal&) {
        return false;
    }
}

/// Whether the widget's summary, as it was read from a file, is one of the state. The files are written one
/// after the other, so a reader may find those of two states.
bool isOf(const QuillmereState& state, const WidgetSnapshot& summary)
{
    WidgetSnapshot own = WidgetSnapshot::make(state, summary.updatedAt);
    if (own.countdown) {
        // A start has the fraction of a second of the pauses, which files do not keep.
        own.countdown->startedAt = Instant(std::floor(own.countdown->startedAt.secondsSince1970()));
    }
    return own == summary;
}

}  // namespace

SummarizedWork SummarizedWork::of(WidgetSnapshot widget, std::optional<AgentSnapshot> agent)
{
    SummarizedWork work{.widget = std::move(widget), .state = {}};
    if (agent) {
        std::optional<QuillmereState> state = stateOf(*std::move(agent));
        if (state && isUsable(*state) && isOf(*state, work.widget)) {
            work.state = std::move(state);
        }
    }
    return work;
}

}  // namespace quillmere::work
