// Thousands of operations in a random order, with what must hold after every one of them.
#include "random_walk.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

constexpr int stepsOfAWalk = 3000;
constexpr auto seeds = std::to_array<std::uint32_t>({1, 2, 3, 4});

// What holds in every state ---------------------------------------------------------------------------

void expectSessionsInOrder(const Block& block, bool lastIsRunning)
{
    EXPECT_LE(std::ssize(block.sessions), block.cycleCount);
    for (const WorkSession& session : block.sessions) {
        const bool isLast = &session == &block.sessions.back();
        EXPECT_EQ(session.number, &session - block.sessions.data() + 1);
        EXPECT_GE(session.accumulatedPausedSeconds, 0);
        EXPECT_EQ(session.endedAt.has_value(), !(isLast && lastIsRunning));
        if (!isLast) {
            EXPECT_TRUE(session.review.has_value());
        }
        if (session.pausedAt) {
            EXPECT_TRUE(isLast && lastIsRunning) << "paused, but not running";
        }
    }
}

void expectBlockFitsTheWorkflow(const QuillmereState& state)
{
    const bool isAtWork = state.workflowState != idle && state.workflowState != blockPlanning;
    if (isAtWork) {
        ASSERT_TRUE(state.currentBlock.has_value());
    }
    if (!state.currentBlock) {
        return;
    }
    if (!isAtWork) {
        EXPECT_TRUE(state.currentBlock->plannedStart.has_value()) << "a block waits for nothing";
        EXPECT_TRUE(state.currentBlock->sessions.empty());
    }
    expectSessionsInOrder(*state.currentBlock, state.workflowState == focusing);
    EXPECT_EQ(state.currentBlock->reflection, std::nullopt);
    EXPECT_EQ(state.currentBlock->completedAt, std::nullopt);
    if (state.workflowState == blockReview) {
        EXPECT_EQ(std::ssize(state.currentBlock->sessions), state.currentBlock->cycleCount);
    }
}

void expectBreakFieldsFitTheWorkflow(const QuillmereState& state)
{
    EXPECT_EQ(state.breakStartedAt.has_value(), state.workflowState == breaking);
    if (state.workflowState != breaking) {
        EXPECT_EQ(state.breakExtensionSeconds, 0);
        EXPECT_EQ(state.breakEndNotifiedAt, std::nullopt);
    }
    // The next plan is written before a break, and lives until the next session starts.
    const bool betweenSessions =
        state.workflowState == breaking || (state.workflowState == sessionPlanning && state.currentSession());
    EXPECT_EQ(state.plannedNextSession.has_value(), betweenSessions);
}

void expectHistory(const QuillmereState& state, const std::vector<Identifier>& newestFirst)
{
    ASSERT_EQ(state.blockHistory.size(), newestFirst.size());
    for (std::size_t index = 0; index < newestFirst.size(); ++index) {
        const Block& block = state.blockHistory[index];
        EXPECT_EQ(block.id, newestFirst[index]);
        EXPECT_TRUE(block.reflection.has_value());
        EXPECT_TRUE(block.completedAt.has_value());
        EXPECT_EQ(std::ssize(block.sessions), block.cycleCount);
        expectSessionsInOrder(block, false);
    }
}

// What others see of it -------------------------------------------------------------------------------

WidgetPhase phaseOf(WorkflowState workflowState)
{
    switch (workflowState) {
        case idle: return WidgetPhase::idle;
        case blockPlanning:
        case sessionPlanning: return WidgetPhase::planning;
        case focusing: return WidgetPhase::focusing;
        case sessionReview:
        case blockReview: return WidgetPhase::reviewing;
        case breaking: return WidgetPhase::breaking;
        case complete: break;
    }
    return WidgetPhase::complete;
}

void expectSummariesAgree(const QuillmereState& state, Instant at)
{
    const StateStore store(
        "", [] { return moment; }, &StateStore::renameReplacing);
    const AgentSnapshot agent = store.agentSnapshot(state, at);
    const WidgetSnapshot widget = WidgetSnapshot::make(state, at);
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(state, at);

    EXPECT_EQ(agent.workflowState, rawValue(state.workflowState));
    EXPECT_EQ(widget.phase, phaseOf(state.workflowState));

    const bool isRunning = state.workflowState == focusing && !state.currentSession()->pausedAt;
    EXPECT_EQ(agent.interruptible, !isRunning);
    EXPECT_EQ(timer.has_value(), state.workflowState == focusing || state.workflowState == breaking);
    EXPECT_EQ(agent.remainingSeconds.has_value(), timer.has_value());
    EXPECT_EQ(widget.countdown.has_value(), timer.has_value());
    if (timer && widget.countdown) {
        EXPECT_EQ(agent.remainingSeconds, timer->remainingSeconds);
        EXPECT_EQ(widget.countdown->frozenRemainingSeconds, timer->remainingSeconds);
        EXPECT_EQ(widget.countdown->isPaused, state.workflowState == focusing && !isRunning);
        EXPECT_EQ(widget.countdown->endsAt, at + static_cast<double>(timer->remainingSeconds));
    }

    const auto open = std::count_if(state.agentQuestions.begin(), state.agentQuestions.end(),
                                    [](const AgentQuestion& question) { return !question.answeredAt; });
    EXPECT_EQ(std::ssize(agent.openQuestions), open);
    EXPECT_EQ(widget.openQuestionCount, open);
    EXPECT_EQ(std::ssize(widget.openQuestions) + widget.hiddenOpenQuestionCount(), open);
    EXPECT_EQ(agent.block, state.currentBlock);
}

/// The timer that people see decides what a tick reports.
void expectTickAgrees(const QuillmereState& before, Instant at)
{
    const std::optional<TimerSnapshot> timer = TimerSnapshot::derive(before, at);
    auto expected = TimerTransition::noChange;
    if (timer && timer->remainingSeconds < 1) {
        const bool isBreak = timer->kind == TimerKind::breakTime;
        if (!isBreak) {
            expected = TimerTransition::focusEnded;
        } else if (!before.breakEndNotifiedAt) {
            expected = TimerTransition::breakEnded;
        }
    }
    QuillmereState state = before;
    EXPECT_EQ(engine.evaluateTimer(state, at), expected);
}

Bytes fileOf(const QuillmereState& state) { return JsonEncoder(JsonLayout::pretty).encode(state); }
QuillmereState stateOf(const Bytes& file) { return JsonDecoder().decode<QuillmereState>(file); }

// The walks -------------------------------------------------------------------------------------------

/// What the walks came across, so that none of them stays in one corner unnoticed.
struct Tally {
    std::map<std::string_view, int> successes;
    std::set<WorkflowError::Case> refusals;
    std::set<WorkflowState> workflowStates;
    std::size_t longestHistory = 0;
};

/// Walks from one seed until something is wrong. `checkFile` is called with every state that is new.
template <class CheckFile>
void walk(std::uint32_t seed, double tick, Tally& tally, CheckFile checkFile)
{
    RandomWalk walk(seed, tick);
    std::vector<Identifier> finished;
    for (int step = 0; step < stepsOfAWalk && !testing::Test::HasFailure(); ++step) {
        const QuillmereState before = walk.state();
        const Attempt attempt = walk.step();
        const QuillmereState& state = walk.state();
        SCOPED_TRACE("seed " + std::to_string(seed) + ", step " + std::to_string(step) + ", " +
                     std::string(attempt.operation) + " in " + std::string(rawValue(before.workflowState)));
        if (attempt.didSomething) {
            ++tally.successes[attempt.operation];
            EXPECT_EQ(state.updatedAt, walk.now());
            checkFile(state);
            if (attempt.operation == "completeBlockReview") {
                finished.insert(finished.begin(), before.currentBlock->id);
            }
        } else {
            EXPECT_TRUE(isExactly(state, before));
        }
        if (attempt.refusal) {
            tally.refusals.insert(*attempt.refusal);
        }
        tally.workflowStates.insert(state.workflowState);
        tally.longestHistory = std::max(tally.longestHistory, finished.size());

        EXPECT_NE(state.workflowState, complete);
        EXPECT_EQ(state.id, before.id);
        expectBlockFitsTheWorkflow(state);
        expectBreakFieldsFitTheWorkflow(state);
        expectHistory(state, finished);
        expectSummariesAgree(state, walk.now());
        expectTickAgrees(state, walk.now());
    }
}

void expectTheWholeMapWasSeen(const Tally& tally)
{
    EXPECT_EQ(tally.successes.size(), 19U);
    EXPECT_EQ(tally.workflowStates, (std::set{idle, blockPlanning, sessionPlanning, focusing, sessionReview,
                                              breaking, blockReview}));
    // All but missingBlock, which nothing throws.
    EXPECT_EQ(tally.refusals, (std::set{WorkflowError::invalidTransition, WorkflowError::missingSessionPlan,
                                        WorkflowError::nextSessionPlanRequired,
                                        WorkflowError::ratingOutOfRange, WorkflowError::invalidDuration}));
    EXPECT_GE(tally.longestHistory, 3U);
}

TEST(RandomWalk, inWholeSecondsReadsBackFromItsFileAsItWas)
{
    Tally tally;
    for (const std::uint32_t seed : seeds) {
        walk(seed, 1, tally,
             [](const QuillmereState& state) { EXPECT_TRUE(isExactly(stateOf(fileOf(state)), state)); });
    }
    expectTheWholeMapWasSeen(tally);
}

TEST(RandomWalk, inFractionsOfSecondsReadsBackFromItsFileAsTheFileHasIt)
{
    // Instants lose their fraction in the file, and nothing more when they are written again.
    Tally tally;
    for (const std::uint32_t seed : seeds) {
        walk(seed + 100, 0.125, tally, [](const QuillmereState& state) {
            const Bytes file = fileOf(state);
            EXPECT_EQ(fileOf(stateOf(file)).view(), file.view());
        });
    }
    expectTheWholeMapWasSeen(tally);
}

}  // namespace
}  // namespace quillmere::test
