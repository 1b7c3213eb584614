#include "work/changes/parts.hpp"

#include <quillmere/records/base/enumeration.hpp>

namespace quillmere::work {
namespace {

using enum ChangeKind;

/// The plan of the next session, as far as no step changes it by the way.
void addNextPlan(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    const auto& earlier = before.plannedNextSession;
    const auto& later = after.plannedNextSession;
    if (earlier == later || hasOneOf(changes, {reviewSaved})) {
        return;
    }
    if (later) {
        changes.push_back({.kind = earlier ? nextPlanChanged : nextPlanSaved});
    } else if (!hasOneOf(changes, {sessionStarted, blockBegun, scheduledBlockBegun, blockCancelled,
                                   blockDropped, blockFinished, blockEndedEarly})) {
        changes.push_back({.kind = nextPlanDropped});
    }
}

/// A move of the workflow that no other change explains.
void addMove(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    if (changes.empty() && before.workflowState != after.workflowState) {
        changes.push_back({.kind = workMoved,
                           .text = "from " + std::string(rawValue(before.workflowState)) + " to " +
                                   std::string(rawValue(after.workflowState))});
    }
}

/// For a file that was edited by hand, or saved again.
void addTheRest(Changes& changes, const QuillmereState& before, const QuillmereState& after)
{
    if (!changes.empty() || before == after) {
        return;
    }
    QuillmereState savedLater = before;
    savedLater.updatedAt = after.updatedAt;
    changes.push_back({.kind = savedLater == after ? savedAgain : otherDetails});
}

}  // namespace

Changes changesBetween(const QuillmereState& before, const QuillmereState& after)
{
    Changes changes;
    addEndOfBreak(changes, before, after);
    addBlocks(changes, before, after);
    addBreak(changes, before, after);
    addNextPlan(changes, before, after);
    addMove(changes, before, after);
    addQuestions(changes, before.agentQuestions, after.agentQuestions);
    addTheRest(changes, before, after);
    return changes;
}

}  // namespace quillmere::work
