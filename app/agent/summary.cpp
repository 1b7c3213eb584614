#include "agent/summary.hpp"

namespace quillmere::agent {

std::string summaryText(const workspace::Workspace& workspace)
{
    const workspace::Situation situation = workspace.look(base::Reach::present);
    const StateStore store({}, StateStore::renameReplacing);
    const AgentSnapshot summary = store.agentSnapshot(situation.state, situation.now);
    return std::string(StateStore::encoder().encode(summary).view());
}

}  // namespace quillmere::agent
