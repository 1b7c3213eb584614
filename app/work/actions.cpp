#include "work/actions.hpp"

#include "work/break_extension.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/base/fatal_error.hpp>

#include <array>

namespace quillmere::work {
namespace {

constexpr WorkflowEngine engine;

bool atAnyTime(const workspace::Situation&) { return true; }

bool isOvertime(const workspace::Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    return timer && timer->remainingSeconds <= 0;
}

bool isBeforeTime(const workspace::Situation& situation) { return !isOvertime(situation); }

/// Whether the break stays over after the usual extension.
bool isLongOver(const workspace::Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    return timer && static_cast<double>(timer->remainingSeconds) + usualBreakExtension <= 0;
}

bool isNotLongOver(const workspace::Situation& situation) { return !isLongOver(situation); }

void extendBreakALittle(QuillmereState& state, Instant now) { extendBreak(state, usualBreakExtension, now); }

template <void (WorkflowEngine::*operation)(QuillmereState&, Instant) const>
void run(QuillmereState& state, Instant now)
{
    (engine.*operation)(state, now);
}

using Engine = WorkflowEngine;

static_assert(usualBreakExtension == 5 * 60, "the label of the extension says 5 min");

// clang-format off
constexpr auto actions = std::to_array<Action>({
    {Step::beginBlockPlanning,     "plan a block",   "", "What is this block about?", atAnyTime, run<&Engine::beginBlockPlanning>},
    {Step::startScheduledBlockNow, "start it now",   "", "The block has begun.", atAnyTime, run<&Engine::startScheduledBlockNow>},
    {Step::editScheduledBlock,     "edit it",        "", "The block is back in planning.", atAnyTime, run<&Engine::editScheduledBlock>},
    {Step::cancelScheduledBlock,   "cancel it",      "Discard the scheduled block?", "The scheduled block is discarded.", atAnyTime, run<&Engine::cancelScheduledBlock>},
    {Step::pauseFocus,             "pause",          "", "Paused.", atAnyTime, run<&Engine::pauseFocus>},
    {Step::resumeFocus,            "resume",         "", "Focus.", atAnyTime, run<&Engine::resumeFocus>},
    {Step::endFocus,               "end",            "End the session before its time?", "The session has ended.", atAnyTime, run<&Engine::endFocus>},
    {Step::extendBreak,            "extend by 5 min", "", "The break is longer now.", isNotLongOver, extendBreakALittle},
    {Step::extendBreak,            "extend by 5 min", "", "The break is longer now, and still over.", isLongOver, extendBreakALittle},
    {Step::endBreak,               "skip the break", "", "The break is skipped.", isBeforeTime, run<&Engine::skipBreak>},
    {Step::endBreak,               "end the break",  "", "The break has ended.", isOvertime, run<&Engine::endBreak>},
});

constexpr auto savings = std::to_array<Saving>({
    {Step::startBlock,              "begin now",        "The block has begun."},
    {Step::scheduleBlock,           "schedule",         "The block is scheduled."},
    {Step::startFocus,              "start focus",      "Focus."},
    {Step::saveReviewAndStartBreak, "save, have a break", "The review is saved."},
    {Step::saveLastReview,          "save",             "The review is saved."},
    {Step::completeBlockReview,     "finish the block", "The block is finished."},
    {Step::addQuestion,             "ask",              "The question waits for an answer."},
    {Step::answerQuestion,          "answer",           "Answered."},
});
// clang-format on

}  // namespace

std::vector<const Action*> actionsFor(const workspace::Situation& situation)
{
    std::vector<const Action*> possible;
    for (const Action& action : actions) {
        if (isPossible(action.step, situation.state) && action.fits(situation)) {
            possible.push_back(&action);
        }
    }
    return possible;
}

const Action* actionFor(Step step, const workspace::Situation& situation)
{
    for (const Action& action : actions) {
        if (action.step == step && transition(step).accepts == situation.state.workflowState &&
            action.fits(situation)) {
            return &action;
        }
    }
    return nullptr;
}

const Saving& savingFor(Step step)
{
    for (const Saving& saving : savings) {
        if (saving.step == step) {
            return saving;
        }
    }
    fatalError("quillmere: a form is saved by a step without a row in the table of savings");
}

}  // namespace quillmere::work
