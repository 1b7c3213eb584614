#include "figures/answers/plans.hpp"

#include <algorithm>

namespace quillmere::figures {
namespace {

constexpr double leastDifference = 60;

BlockPlan blockPlanOf(const Block& block, Day day)
{
    BlockPlan plan{.block = &block,
                   .day = day,
                   .plannedSessions = block.cycleCount,
                   .doneSessions = 0,
                   .completions = {},
                   .plannedSeconds = 0,
                   .workedSeconds = 0,
                   .isFinished = block.completedAt.has_value(),
                   .isFinishedEarly = false};
    for (const WorkSession& session : block.sessions) {
        plan.doneSessions += session.endedAt ? 1 : 0;
        if (session.review) {
            ++plan.completions[static_cast<std::size_t>(session.review->completion)];
        }
        if (const std::optional<SessionTime> time = timeOf(session)) {
            plan.plannedSeconds += session.plannedDurationSeconds;
            plan.workedSeconds += time->workedSeconds;
        }
    }
    plan.isFinishedEarly = plan.isFinished && plan.doneSessions < plan.plannedSessions;
    return plan;
}

void addBlockPlan(Plans& plans, const BlockPlan& plan)
{
    plans.blocks.push_back(plan);
    if (plan.isFinished) {
        ++plans.finishedBlocks;
        plans.finishedEarly += plan.isFinishedEarly ? 1 : 0;
        plans.plannedSessions += plan.plannedSessions;
        plans.doneSessions += plan.doneSessions;
    }
}

void addDifference(Plans& plans, const EndedSession& ended)
{
    if (!ended.time) {
        return;
    }
    const double over = ended.time->workedSeconds - ended.session->plannedDurationSeconds;
    if (over >= leastDifference) {
        ++plans.longerSessions;
        plans.overSeconds += over;
    } else if (-over >= leastDifference) {
        ++plans.shorterSessions;
        plans.underSeconds -= over;
    }
}

}  // namespace

Plans plansOf(const LookBack& look)
{
    Plans plans;
    for (auto ended = look.sessions.rbegin(); ended != look.sessions.rend(); ++ended) {
        addDifference(plans, *ended);
        if (ended->session == &ended->block->sessions.front()) {
            addBlockPlan(plans, blockPlanOf(*ended->block, ended->day));
        }
    }
    return plans;
}

}  // namespace quillmere::figures
