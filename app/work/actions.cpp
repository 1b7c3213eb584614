#include "work/actions.hpp"

#include "work/break_extension.hpp"
#include "work/done_text.hpp"

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
    {Step::startScheduledBlockNow, "start it now",   "", done::blockBegun, atAnyTime, run<&Engine::startScheduledBlockNow>},
    {Step::editScheduledBlock,     "edit it",        "", done::scheduleEdited, atAnyTime, run<&Engine::editScheduledBlock>},
    {Step::cancelScheduledBlock,   "cancel it",      "Discard the scheduled block?", done::scheduleCancelled, atAnyTime, run<&Engine::cancelScheduledBlock>},
    {Step::pauseFocus,             "pause",          "", done::focusPaused, atAnyTime, run<&Engine::pauseFocus>},
    {Step::resumeFocus,            "resume",         "", done::focusResumed, atAnyTime, run<&Engine::resumeFocus>},
    {Step::endFocus,               "end",            "End the session before its time?", done::focusEnded, atAnyTime, run<&Engine::endFocus>},
    {Step::extendBreak,            "extend by 5 min", "", done::breakExtended, isNotLongOver, extendBreakALittle},
    {Step::extendBreak,            "extend by 5 min", "", done::breakExtendedAndOver, isLongOver, extendBreakALittle},
    {Step::endBreak,               "skip the break", "", done::breakSkipped, isBeforeTime, run<&Engine::skipBreak>},
    {Step::endBreak,               "end the break",  "", done::breakEnded, isOvertime, run<&Engine::endBreak>},
});

constexpr auto savings = std::to_array<Saving>({
    {Step::startBlock,              "begin now",        done::blockBegun},
    {Step::scheduleBlock,           "schedule",         done::blockScheduled},
    {Step::startFocus,              "start focus",      done::focusStarted},
    {Step::saveReviewAndStartBreak, "save, have a break", done::reviewSaved},
    {Step::saveLastReview,          "save",             done::reviewSaved},
    {Step::completeBlockReview,     "finish the block", done::blockFinished},
    {Step::addQuestion,             "ask",              done::questionAsked},
    {Step::answerQuestion,          "answer",           done::questionAnswered},
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
