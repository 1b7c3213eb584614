#include "agent/summary.hpp"

namespace quillmere::app::agent {

std::string summaryText(const Workspace& workspace)
{
    const Situation situation = workspace.look();
    const StateStore store({}, StateStore::renameReplacing);
    const AgentSnapshot summary = store.agentSnapshot(situation.state, situation.now);
    return std::string(StateStore::encoder().encode(summary).view());
}

}  // namespace quillmere::app::agent
