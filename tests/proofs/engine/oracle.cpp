#include "proofs/engine/oracle.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <sstream>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

// Replaces NaN in comparisons; no test uses this number.
constexpr double nanSubstitute = -98'765.4321;

void replace(double& number) { number = std::isnan(number) ? nanSubstitute : number; }
void replace(Instant& instant)
{
    instant = std::isnan(instant.secondsSince1970()) ? Instant(nanSubstitute) : instant;
}
void replace(std::optional<Instant>& instant)
{
    if (instant) {
        replace(*instant);
    }
}

void replace(Block& block)
{
    replace(block.createdAt);
    replace(block.plannedStart);
    replace(block.focusDurationSeconds);
    replace(block.breakDurationSeconds);
    for (WorkSession& session : block.sessions) {
        replace(session.startedAt);
        replace(session.plannedDurationSeconds);
        replace(session.pausedAt);
        replace(session.accumulatedPausedSeconds);
        replace(session.endedAt);
    }
    replace(block.completedAt);
    replace(block.scheduledStartTriggeredAt);
}

QuillmereState replaced(QuillmereState state)
{
    if (state.currentBlock) {
        replace(*state.currentBlock);
    }
    for (Block& block : state.blockHistory) {
        replace(block);
    }
    replace(state.breakStartedAt);
    replace(state.breakExtensionSeconds);
    replace(state.breakEndNotifiedAt);
    for (AgentQuestion& question : state.agentQuestions) {
        replace(question.createdAt);
        replace(question.answeredAt);
    }
    replace(state.updatedAt);
    return state;
}

std::string described(const Answer& answer)
{
    if (answer.refusal) {
        return "refused: " + answer.refusal->message;
    }
    return answer.didSomething() ? "done" : "nothing to do";
}

/// The names of the fields that differ.
std::string differences(const QuillmereState& before, const QuillmereState& after)
{
    const QuillmereState left = replaced(before);
    const QuillmereState right = replaced(after);
    std::string names;
    const auto compare = [&names](const char* name, bool isEqual) {
        names += isEqual ? "" : std::string(" ") + name;
    };
    compare("id", left.id == right.id);
    compare("workflowState", left.workflowState == right.workflowState);
    compare("currentBlock", left.currentBlock == right.currentBlock);
    compare("blockHistory", left.blockHistory == right.blockHistory);
    compare("plannedNextSession", left.plannedNextSession == right.plannedNextSession);
    compare("breakStartedAt", left.breakStartedAt == right.breakStartedAt);
    compare("breakExtensionSeconds", left.breakExtensionSeconds == right.breakExtensionSeconds);
    compare("breakEndNotifiedAt", left.breakEndNotifiedAt == right.breakEndNotifiedAt);
    compare("agentQuestions", left.agentQuestions == right.agentQuestions);
    compare("updatedAt", left.updatedAt == right.updatedAt);
    return names;
}

/// Whether an identifier is a random UUID of version 4 and not one of the samples.
bool looksDrawn(const Identifier& id)
{
    const Identifier::Octets sample = identifier(0).bytes();
    const bool isSample = std::equal(id.bytes().begin(), id.bytes().begin() + 10, sample.begin());
    return id.bytes()[6] >> 4 == 4 && id.bytes()[8] >> 6 == 2 && !isSample;
}

}  // namespace

bool isSame(const QuillmereState& left, const QuillmereState& right)
{
    return left == right || replaced(left) == replaced(right);
}

std::optional<Answer> Oracle::check(QuillmereState& state, const Call& call)
{
    ExpectedOutcome expected = expectedOutcome(state, call);
    if (expected.isFatal) {
        ++tallies_[placeOf(call.operation)].fatal;
        return std::nullopt;
    }
    const WorkflowState before = state.workflowState;
    const Answer answer = perform(state, call);
    takeOverIdentifier(expected, state);
    ++compared_;
    count(call.operation, answer);
    if (answer != expected.answer || !isSame(state, expected.after)) {
        ADD_FAILURE() << nameOf(call.operation) << " in workflow state " << static_cast<int>(before) << " at "
                      << (call.now - moment) << ": " << described(answer) << ", by the rules "
                      << described(expected.answer)
                      << "; other fields than by the rules:" << differences(expected.after, state);
    }
    return answer;
}

void Oracle::takeOverIdentifier(ExpectedOutcome& expected, const QuillmereState& state)
{
    if (expected.drawn == ExpectedOutcome::Drawn::nothing) {
        return;
    }
    const bool isSession = expected.drawn == ExpectedOutcome::Drawn::session;
    const bool isThere = isSession ? state.currentSession() != nullptr : !state.agentQuestions.empty();
    if (!isThere) {
        return;  // the comparison of the states will fail
    }
    const Identifier id = isSession ? state.currentSession()->id : state.agentQuestions.back().id;
    if (!looksDrawn(id) || !drawn_.insert(id).second) {
        return;  // keep the placeholder, so that the comparison of the states fails
    }
    if (isSession) {
        expected.after.currentBlock->sessions.back().id = id;
    } else {
        expected.after.agentQuestions.back().id = id;
    }
}

void Oracle::count(Operation operation, const Answer& answer)
{
    Tally& tally = tallies_[placeOf(operation)];
    if (answer.refusal) {
        ++tally.refused[static_cast<std::size_t>(answer.refusal->reason)];
    } else if (answer.didSomething()) {
        ++tally.acted;
    } else {
        ++tally.reportedNothing;
    }
}

std::uint64_t Oracle::fatal() const
{
    std::uint64_t sum = 0;
    for (const Tally& tally : tallies_) {
        sum += tally.fatal;
    }
    return sum;
}

std::uint64_t Oracle::refused(WorkflowError::Case reason) const
{
    std::uint64_t sum = 0;
    for (const Tally& tally : tallies_) {
        sum += tally.refused[static_cast<std::size_t>(reason)];
    }
    return sum;
}

}  // namespace quillmere::test
