// The same operations on a state without history and on one with 10,000 blocks. All except archiving a block
// are done and undone on one state, so that the measurement includes no copy.
#include "sizes.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::bench {
namespace {

const WorkflowEngine engine;

/// A copy of the sample state, and an instant after its last change.
struct Work {
    explicit Work(const benchmark::State& run) : state(stateOf(run)), now(state.updatedAt + 60) {}

    QuillmereState state;
    Instant now;
};

SessionReview review()
{
    return {.id = Identifier(Identifier::Octets{}),
            .completion = CompletionResult::yes,
            .noteworthyResult = {},
            .distractions = {},
            .improvement = {}};
}

void pauseAndResume(benchmark::State& run)
{
    Work work(run);
    for (auto _ : run) {
        engine.pauseFocus(work.state, work.now);
        engine.resumeFocus(work.state, work.now);
    }
}

void evaluateTimer(benchmark::State& run)
{
    Work work(run);
    for (auto _ : run) {
        benchmark::DoNotOptimize(engine.evaluateTimer(work.state, work.now));
    }
}

/// A cycle: end, review, break with an extension, next session. Then removes the new session.
void cycle(benchmark::State& run)
{
    Work work(run);
    const SessionPlan plan = SessionPlan::blank(Identifier(Identifier::Octets{}));
    for (auto _ : run) {
        engine.endFocus(work.state, work.now);
        engine.saveReviewAndStartBreak(work.state, review(), plan, work.now);
        engine.extendBreak(work.state, 60, work.now);
        engine.endBreak(work.state, work.now);
        engine.startFocus(work.state, std::nullopt, work.now);
        work.state.currentBlock->sessions.pop_back();
    }
}

/// Planning, scheduling, editing, starting.
void plan(benchmark::State& run)
{
    Work work(run);
    Block block = Block::default_(work.now);
    block.plannedStart = work.now + 3600;
    for (auto _ : run) {
        work.state.workflowState = WorkflowState::idle;
        work.state.currentBlock.reset();
        engine.beginBlockPlanning(work.state, work.now);
        engine.scheduleBlock(work.state, block, work.now);
        benchmark::DoNotOptimize(engine.evaluateSchedule(work.state, work.now));
        engine.editScheduledBlock(work.state, work.now);
        engine.startBlock(work.state, block, work.now);
    }
}

/// The exception: inserts the finished block at the front of the history.
void completeBlockReview(benchmark::State& run)
{
    Work work(run);
    for (auto _ : run) {
        run.PauseTiming();
        work.state.workflowState = WorkflowState::blockReview;
        work.state.currentBlock = Block::default_(work.now);
        run.ResumeTiming();
        engine.completeBlockReview(work.state, {}, work.now);
    }
}

void askAndAnswer(benchmark::State& run)
{
    Work work(run);
    for (auto _ : run) {
        engine.addQuestion(work.state, "May I?", work.now);
        engine.answerQuestion(work.state, work.state.agentQuestions.back().id, "Yes", work.now);
        work.state.agentQuestions.pop_back();
    }
}

void agentSummary(benchmark::State& run)
{
    const Work work(run);
    const StateStore store({}, StateStore::renameReplacing);
    for (auto _ : run) {
        benchmark::DoNotOptimize(store.agentSnapshot(work.state, work.now));
    }
}

void widgetSummary(benchmark::State& run)
{
    const Work work(run);
    for (auto _ : run) {
        benchmark::DoNotOptimize(WidgetSnapshot::make(work.state, work.now));
    }
}

#define QUILLMERE_BENCH_HISTORY(function, name) QUILLMERE_BENCH(function, name)->Arg(0)->Arg(10000)

QUILLMERE_BENCH_HISTORY(pauseAndResume, "operation/pause_and_resume");
QUILLMERE_BENCH_HISTORY(evaluateTimer, "operation/evaluate_timer");
QUILLMERE_BENCH_HISTORY(cycle, "operation/cycle");
QUILLMERE_BENCH_HISTORY(plan, "operation/plan");
QUILLMERE_BENCH_HISTORY(askAndAnswer, "operation/ask_and_answer");
QUILLMERE_BENCH_HISTORY(completeBlockReview, "operation/complete_block_review")->Iterations(64);
QUILLMERE_BENCH_HISTORY(agentSummary, "summary/agent");
QUILLMERE_BENCH_HISTORY(widgetSummary, "summary/widget");

}  // namespace
}  // namespace quillmere::bench
