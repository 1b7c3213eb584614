#include "workflow_map.hpp"

#include <array>
#include <utility>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;
using enum Elsewhere;

WorkSession& session(QuillmereState& state) { return state.currentBlock->sessions.back(); }

void asItIs(QuillmereState&) {}
void noBlock(QuillmereState& state) { state.currentBlock.reset(); }
void notYetTriggered(QuillmereState& state) { state.currentBlock->scheduledStartTriggeredAt.reset(); }
void notPaused(QuillmereState& state) { session(state).pausedAt.reset(); }
void lastCycle(QuillmereState& state) { state.currentBlock->cycleCount = 2; }

// Each lets one timer run out and keeps the other from running.
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

// The operations, each with arguments that it accepts. One without a report has done something unless
// it threw.
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

constexpr std::nullopt_t any = std::nullopt;
constexpr std::nullopt_t same = std::nullopt;
using Engine = WorkflowEngine;

// clang-format off
constexpr auto rows = std::to_array<Arrow>({
    // operation                 when              from             to               elsewhere
    {"beginBlockPlanning",       "",               idle,            blockPlanning,   isRefused,      noBlock,         call<&Engine::beginBlockPlanning>},
    {"startBlock",               "",               blockPlanning,   sessionPlanning, isRefused,      asItIs,          startBlock},
    {"scheduleBlock",            "",               blockPlanning,   idle,            isRefused,      asItIs,          scheduleBlock},
    {"editScheduledBlock",       "",               idle,            blockPlanning,   isRefused,      asItIs,          call<&Engine::editScheduledBlock>},
    {"cancelScheduledBlock",     "",               idle,            idle,            isRefused,      asItIs,          call<&Engine::cancelScheduledBlock>},
    {"startScheduledBlockNow",   "",               idle,            sessionPlanning, isRefused,      asItIs,          call<&Engine::startScheduledBlockNow>},
    {"evaluateSchedule",         "it is due",      idle,            sessionPlanning, hasNothingToDo, notYetTriggered, evaluateSchedule},
    {"startFocus",               "",               sessionPlanning, focusing,        isRefused,      asItIs,          startFocus},
    {"pauseFocus",               "",               focusing,        focusing,        isRefused,      notPaused,       call<&Engine::pauseFocus>},
    {"resumeFocus",              "",               focusing,        focusing,        isRefused,      asItIs,          call<&Engine::resumeFocus>},
    {"endFocus",                 "",               focusing,        sessionReview,   isRefused,      asItIs,          call<&Engine::endFocus>},
    {"saveReviewAndStartBreak",  "cycles remain",  sessionReview,   breaking,        isRefused,      asItIs,          saveReview},
    {"saveReviewAndStartBreak",  "the last cycle", sessionReview,   blockReview,     isRefused,      lastCycle,       saveReview},
    {"extendBreak",              "",               breaking,        breaking,        isRefused,      asItIs,          extendBreak},
    {"endBreak",                 "",               breaking,        sessionPlanning, isRefused,      asItIs,          call<&Engine::endBreak>},
    {"skipBreak",                "",               breaking,        sessionPlanning, isRefused,      asItIs,          call<&Engine::skipBreak>},
    {"evaluateTimer",            "focus is over",  focusing,        sessionReview,   hasNothingToDo, focusTimeIsUp,   evaluateTimer},
    {"evaluateTimer",            "break is over",  breaking,        breaking,        hasNothingToDo, breakTimeIsUp,   evaluateTimer},
    {"completeBlockReview",      "",               blockReview,     idle,            isRefused,      asItIs,          completeBlockReview},
    {"addQuestion",              "",               any,             same,            isRefused,      asItIs,          addQuestion},
    {"answerQuestion",           "",               any,             same,            isRefused,      asItIs,          answerQuestion},
});
// clang-format on

}  // namespace

std::span<const Arrow> arrows() { return rows; }

std::string nameOf(const Arrow& arrow)
{
    return std::string(arrow.operation) + (arrow.when.empty() ? "" : ", ") + std::string(arrow.when);
}

QuillmereState startOf(const Arrow& arrow) { return startOf(arrow, arrow.from.value_or(focusing)); }

QuillmereState startOf(const Arrow& arrow, WorkflowState workflowState)
{
    QuillmereState state = crowdedStateIn(workflowState);
    arrow.prepare(state);
    return state;
}

}  // namespace quillmere::test
