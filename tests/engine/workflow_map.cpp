#include "workflow_map.hpp"

#include <array>
#include <utility>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum Elsewhere;

void asItIs(QuillmereState&) {}
void noBlock(QuillmereState& state) { state.currentBlock.reset(); }
void notYetTriggered(QuillmereState& state) { state.currentBlock->scheduledStartTriggeredAt.reset(); }
void notPaused(QuillmereState& state) { session(state).pausedAt.reset(); }
void lastCycle(QuillmereState& state) { state.currentBlock->cycleCount = 2; }

// Each lets one timer run out and removes what the other one needs.
void focusTimeIsUp(QuillmereState& state)
{
    session(state).pausedAt.reset();
    state.breakStartedAt.reset();
}
void breakTimeIsUp(QuillmereState& state)
{
    state.currentBlock->sessions.clear();
    state.breakEndNotifiedAt.reset();
}

// The operations, each with arguments that it accepts. An operation that returns nothing did something
// unless it threw.
template <void (WorkflowEngine::*operation)(QuillmereState&, Instant) const>
bool call(QuillmereState& state, Instant at)
{
    (engine.*operation)(state, at);
    return true;
}

bool startBlock(QuillmereState& state, Instant at)
{
    engine.startBlock(state, sampleBlock(9), at);
    return true;
}

bool scheduleBlock(QuillmereState& state, Instant at)
{
    Block block = sampleBlock(9);
    block.plannedStart = at + 3600;
    engine.scheduleBlock(state, std::move(block), at);
    return true;
}

bool startFocus(QuillmereState& state, Instant at)
{
    engine.startFocus(state, samplePlan(9), at);
    return true;
}

bool saveReview(QuillmereState& state, Instant at)
{
    engine.saveReviewAndStartBreak(state, sampleReview(9), samplePlan(9), at);
    return true;
}

bool extendBreak(QuillmereState& state, Instant at)
{
    engine.extendBreak(state, 60, at);
    return true;
}

bool completeBlockReview(QuillmereState& state, Instant at)
{
    engine.completeBlockReview(state, sampleReflection(), at);
    return true;
}

bool addQuestion(QuillmereState& state, Instant at)
{
    engine.addQuestion(state, "Shall I go on with the second part?", at);
    return true;
}

bool answerQuestion(QuillmereState& state, Instant at)
{
    engine.answerQuestion(state, identifier(602), "Yes, but leave the logs where they are", at);
    return true;
}

bool evaluateSchedule(QuillmereState& state, Instant at) { return engine.evaluateSchedule(state, at); }

bool evaluateTimer(QuillmereState& state, Instant at)
{
    return engine.evaluateTimer(state, at) != TimerTransition::noChange;
}

using Engine = WorkflowEngine;

// clang-format off
constexpr auto rows = std::to_array<Arrow>({
    // operation                 when              step                           elsewhere    prepare          walk
    {"beginBlockPlanning",       "",               Step::beginBlockPlanning,      refuses,     noBlock,         call<&Engine::beginBlockPlanning>},
    {"startBlock",               "",               Step::startBlock,              refuses,     asItIs,          startBlock},
    {"scheduleBlock",            "",               Step::scheduleBlock,           refuses,     asItIs,          scheduleBlock},
    {"editScheduledBlock",       "",               Step::editScheduledBlock,      refuses,     asItIs,          call<&Engine::editScheduledBlock>},
    {"cancelScheduledBlock",     "",               Step::cancelScheduledBlock,    refuses,     asItIs,          call<&Engine::cancelScheduledBlock>},
    {"startScheduledBlockNow",   "",               Step::startScheduledBlockNow,  refuses,     asItIs,          call<&Engine::startScheduledBlockNow>},
    {"evaluateSchedule",         "it is due",      Step::evaluateSchedule,        doesNothing, notYetTriggered, evaluateSchedule},
    {"startFocus",               "",               Step::startFocus,              refuses,     asItIs,          startFocus},
    {"pauseFocus",               "",               Step::pauseFocus,              refuses,     notPaused,       call<&Engine::pauseFocus>},
    {"resumeFocus",              "",               Step::resumeFocus,             refuses,     asItIs,          call<&Engine::resumeFocus>},
    {"endFocus",                 "",               Step::endFocus,                refuses,     asItIs,          call<&Engine::endFocus>},
    {"saveReviewAndStartBreak",  "cycles remain",  Step::saveReviewAndStartBreak, refuses,     asItIs,          saveReview},
    {"saveReviewAndStartBreak",  "the last cycle", Step::saveLastReview,          refuses,     lastCycle,       saveReview},
    {"extendBreak",              "",               Step::extendBreak,             refuses,     asItIs,          extendBreak},
    {"endBreak",                 "",               Step::endBreak,                refuses,     asItIs,          call<&Engine::endBreak>},
    {"skipBreak",                "",               Step::endBreak,                refuses,     asItIs,          call<&Engine::skipBreak>},
    {"evaluateTimer",            "focus is over",  Step::endFocus,                doesNothing, focusTimeIsUp,   evaluateTimer},
    {"evaluateTimer",            "break is over",  Step::announceBreakEnd,        doesNothing, breakTimeIsUp,   evaluateTimer},
    {"completeBlockReview",      "",               Step::completeBlockReview,     refuses,     asItIs,          completeBlockReview},
    {"addQuestion",              "",               Step::addQuestion,             refuses,     asItIs,          addQuestion},
    {"answerQuestion",           "",               Step::answerQuestion,          refuses,     asItIs,          answerQuestion},
});
// clang-format on

}  // namespace

std::span<const Arrow> arrows() { return rows; }

std::string nameOf(const Arrow& arrow)
{
    return std::string(arrow.operation) + (arrow.when.empty() ? "" : ", ") + std::string(arrow.when);
}

QuillmereState startOf(const Arrow& arrow)
{
    return startOf(arrow, arrow.from().value_or(WorkflowState::focusing));
}

QuillmereState startOf(const Arrow& arrow, WorkflowState workflowState)
{
    QuillmereState state = crowdedStateIn(workflowState);
    arrow.prepare(state);
    return state;
}

}  // namespace quillmere::test
