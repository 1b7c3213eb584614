#include "engine_testing.hpp"

#include <string>

namespace quillmere::test {
namespace {

/// Collects the names of differing fields.
class Differences {
public:
    template <class Value>
    void compare(const std::string& name, const Value& actual, const Value& expected)
    {
        if (!(actual == expected)) {
            names_ += " " + name;
        }
    }

    void compareSessions(const WorkSession& actual, const WorkSession& expected)
    {
        const std::string prefix = "currentSession.";
        compare(prefix + "id", actual.id, expected.id);
        compare(prefix + "number", actual.number, expected.number);
        compare(prefix + "plan", actual.plan, expected.plan);
        compare(prefix + "startedAt", actual.startedAt, expected.startedAt);
        compare(prefix + "plannedDurationSeconds", actual.plannedDurationSeconds,
                expected.plannedDurationSeconds);
        compare(prefix + "pausedAt", actual.pausedAt, expected.pausedAt);
        compare(prefix + "accumulatedPausedSeconds", actual.accumulatedPausedSeconds,
                expected.accumulatedPausedSeconds);
        compare(prefix + "endedAt", actual.endedAt, expected.endedAt);
        compare(prefix + "review", actual.review, expected.review);
    }

    void compareBlocks(const Block& actual, const Block& expected)
    {
        const std::string prefix = "currentBlock.";
        compare(prefix + "id", actual.id, expected.id);
        compare(prefix + "createdAt", actual.createdAt, expected.createdAt);
        compare(prefix + "plannedStart", actual.plannedStart, expected.plannedStart);
        compare(prefix + "focusDurationSeconds", actual.focusDurationSeconds, expected.focusDurationSeconds);
        compare(prefix + "breakDurationSeconds", actual.breakDurationSeconds, expected.breakDurationSeconds);
        compare(prefix + "cycleCount", actual.cycleCount, expected.cycleCount);
        compare(prefix + "outcomes", actual.outcomes, expected.outcomes);
        compare(prefix + "sessions", actual.sessions, expected.sessions);
        compare(prefix + "reflection", actual.reflection, expected.reflection);
        compare(prefix + "completedAt", actual.completedAt, expected.completedAt);
        compare(prefix + "scheduledStartTriggeredAt", actual.scheduledStartTriggeredAt,
                expected.scheduledStartTriggeredAt);
    }

    void compareStates(const QuillmereState& actual, const QuillmereState& expected)
    {
        compare("id", actual.id, expected.id);
        compare("workflowState", actual.workflowState, expected.workflowState);
        compare("currentBlock", actual.currentBlock, expected.currentBlock);
        compare("blockHistory", actual.blockHistory, expected.blockHistory);
        compare("plannedNextSession", actual.plannedNextSession, expected.plannedNextSession);
        compare("breakStartedAt", actual.breakStartedAt, expected.breakStartedAt);
        compare("breakExtensionSeconds", actual.breakExtensionSeconds, expected.breakExtensionSeconds);
        compare("breakEndNotifiedAt", actual.breakEndNotifiedAt, expected.breakEndNotifiedAt);
        compare("agentQuestions", actual.agentQuestions, expected.agentQuestions);
        compare("updatedAt", actual.updatedAt, expected.updatedAt);
        if (actual.currentBlock && expected.currentBlock) {
            compareBlocks(*actual.currentBlock, *expected.currentBlock);
        }
        if (actual.currentSession() && expected.currentSession()) {
            compareSessions(*actual.currentSession(), *expected.currentSession());
        }
    }

    const std::string& names() const { return names_; }

private:
    std::string names_;
};

}  // namespace

SessionPlan planRated(std::int64_t energy, std::int64_t morale)
{
    SessionPlan plan = samplePlan(9);
    plan.energy = energy;
    plan.morale = morale;
    return plan;
}

WorkSession& session(QuillmereState& state) { return state.currentBlock->sessions.back(); }

QuillmereState crowdedStateIn(WorkflowState workflowState)
{
    QuillmereState state = fullState();
    state.workflowState = workflowState;
    return state;
}

testing::AssertionResult isExactly(const QuillmereState& actual, const QuillmereState& expected)
{
    // The equality of the records decides; the names only help to find the difference.
    if (actual == expected) {
        return testing::AssertionSuccess();
    }
    Differences differences;
    differences.compareStates(actual, expected);
    return testing::AssertionFailure() << "differs in:" << differences.names();
}

}  // namespace quillmere::test
