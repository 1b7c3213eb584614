#include "proofs/engine/invariants.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

void expectSessionsInOrder(const Block& block, bool lastIsRunning)
{
    EXPECT_LE(std::ssize(block.sessions), block.cycleCount);
    for (const WorkSession& session : block.sessions) {
        const bool isLast = &session == &block.sessions.back();
        EXPECT_EQ(session.number, &session - block.sessions.data() + 1);
        EXPECT_GE(session.accumulatedPausedSeconds, 0);
        EXPECT_EQ(session.endedAt.has_value(), !(isLast && lastIsRunning));
        EXPECT_TRUE(isLast || session.review.has_value());
        EXPECT_TRUE(!session.pausedAt || (isLast && lastIsRunning)) << "paused, but not running";
    }
}

void expectBlockFitsTheWorkflow(const QuillmereState& state)
{
    const bool isAtWork = state.workflowState != idle && state.workflowState != blockPlanning;
    ASSERT_TRUE(state.currentBlock || !isAtWork);
    if (!state.currentBlock) {
        return;
    }
    if (!isAtWork) {
        EXPECT_TRUE(state.currentBlock->plannedStart.has_value()) << "a waiting block has no planned start";
        EXPECT_TRUE(state.currentBlock->sessions.empty());
    }
    expectSessionsInOrder(*state.currentBlock, state.workflowState == focusing);
    EXPECT_EQ(state.currentBlock->reflection, std::nullopt);
    EXPECT_EQ(state.currentBlock->completedAt, std::nullopt);
    if (state.workflowState == blockReview) {
        EXPECT_EQ(std::ssize(state.currentBlock->sessions), state.currentBlock->cycleCount);
    }
}

void expectBreakFitsTheWorkflow(const QuillmereState& state)
{
    EXPECT_EQ(state.breakStartedAt.has_value(), state.workflowState == breaking);
    if (state.workflowState != breaking) {
        EXPECT_EQ(state.breakExtensionSeconds, 0);
        EXPECT_EQ(state.breakEndNotifiedAt, std::nullopt);
    }
    // The next plan is saved before a break and kept until the next session starts.
    const bool isBetweenSessions =
        state.workflowState == breaking || (state.workflowState == sessionPlanning && state.currentSession());
    EXPECT_EQ(state.plannedNextSession.has_value(), isBetweenSessions);
}

void expectFinishedBlocksInTheHistory(const QuillmereState& state)
{
    for (const Block& block : state.blockHistory) {
        EXPECT_TRUE(block.reflection.has_value());
        EXPECT_TRUE(block.completedAt.has_value());
        EXPECT_EQ(std::ssize(block.sessions), block.cycleCount);
        expectSessionsInOrder(block, false);
    }
}

void expectOneCountdown(const QuillmereState& state, Instant now, const AgentSnapshot& agent,
                        const WidgetSnapshot& widget)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, now);
    EXPECT_EQ(timer.has_value(), state.workflowState == focusing || state.workflowState == breaking);
    ASSERT_EQ(agent.remainingSeconds.has_value(), timer.has_value());
    ASSERT_EQ(widget.countdown.has_value(), timer.has_value());
    if (timer) {
        EXPECT_EQ(agent.remainingSeconds, timer->remainingSeconds);
        EXPECT_EQ(widget.countdown->frozenRemainingSeconds, timer->remainingSeconds);
        EXPECT_EQ(widget.countdown->isPaused, timer->isPaused);
        EXPECT_EQ(widget.countdown->endsAt, now + static_cast<double>(timer->remainingSeconds));
    }
}

Bytes fileOf(const QuillmereState& state) { return JsonEncoder(JsonLayout::pretty).encode(state); }

bool hasFiniteDurations(const Block& block)
{
    return std::isfinite(block.focusDurationSeconds) && std::isfinite(block.breakDurationSeconds);
}

}  // namespace

void expectSound(const QuillmereState& state)
{
    EXPECT_NE(state.workflowState, complete);
    expectBlockFitsTheWorkflow(state);
    expectBreakFitsTheWorkflow(state);
    expectFinishedBlocksInTheHistory(state);
}

void expectSummariesAgree(const QuillmereState& state, Instant now)
{
    const StateStore store(
        "", [] { return moment; }, &StateStore::renameReplacing);
    const AgentSnapshot agent = store.agentSnapshot(state, now);
    const WidgetSnapshot widget = WidgetSnapshot::make(state, now);
    expectOneCountdown(state, now, agent, widget);
    EXPECT_EQ(agent.workflowState, rawValue(state.workflowState));
    EXPECT_EQ(agent.block, state.currentBlock);
    const auto open = std::count_if(state.agentQuestions.begin(), state.agentQuestions.end(),
                                    [](const AgentQuestion& question) { return !question.answeredAt; });
    EXPECT_EQ(std::ssize(agent.openQuestions), open);
    EXPECT_EQ(widget.openQuestionCount, open);
    EXPECT_EQ(std::ssize(widget.openQuestions) + widget.hiddenOpenQuestionCount(), open);
}

void expectReadsBack(const QuillmereState& state)
{
    const Bytes file = fileOf(state);
    EXPECT_EQ(fileOf(JsonDecoder().decode<QuillmereState>(file)).view(), file.view());
}

bool isFinite(const QuillmereState& state)
{
    return std::isfinite(state.breakExtensionSeconds) &&
           (!state.currentBlock || hasFiniteDurations(*state.currentBlock)) &&
           std::all_of(state.blockHistory.begin(), state.blockHistory.end(),
                       [](const Block& block) { return hasFiniteDurations(block); });
}

}  // namespace quillmere::test
