#include "screen/actions.hpp"

#include "work/break_extension.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

namespace quillmere::screen {
namespace {

constexpr WorkflowEngine engine;

bool atAnyTime(const workspace::Situation&) { return true; }

bool isOvertime(const workspace::Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    return timer && timer->remainingSeconds <= 0;
}

bool isBeforeTime(const workspace::Situation& situation) { return !isOvertime(situation); }

/// Whether the break has been over for longer than one key makes it.
bool isLongOver(const workspace::Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    return timer && static_cast<double>(timer->remainingSeconds) + work::usualBreakExtension <= 0;
}

bool isNotLongOver(const workspace::Situation& situation) { return !isLongOver(situation); }

void extendBreakALittle(QuillmereState& state, Instant now)
{
    work::extendBreak(state, work::usualBreakExtension, now);
}

template <void (WorkflowEngine::*operation)(QuillmereState&, Instant) const>
void run(QuillmereState& state, Instant now)
{
    (engine.*operation)(state, now);
}

using Engine = WorkflowEngine;

// clang-format off
constexpr auto actions = std::to_array<Action>({
    {Step::beginBlockPlanning,     'p', "plan a block",   "", "What is this block about?", atAnyTime, run<&Engine::beginBlockPlanning>},
    {Step::startScheduledBlockNow, 's', "start it now",   "", "The block has begun.", atAnyTime, run<&Engine::startScheduledBlockNow>},
    {Step::editScheduledBlock,     'e', "edit it",        "", "The block is back in planning.", atAnyTime, run<&Engine::editScheduledBlock>},
    {Step::cancelScheduledBlock,   'c', "cancel it",      "Discard the scheduled block?", "The scheduled block is discarded.", atAnyTime, run<&Engine::cancelScheduledBlock>},
    {Step::pauseFocus,             'p', "pause",          "", "Paused.", atAnyTime, run<&Engine::pauseFocus>},
    {Step::resumeFocus,            'r', "resume",         "", "Focus.", atAnyTime, run<&Engine::resumeFocus>},
    {Step::endFocus,               'e', "end",            "End the session before its time?", "The session has ended.", atAnyTime, run<&Engine::endFocus>},
    {Step::extendBreak,            'e', "extend by 5 min", "", "The break is longer now.", isNotLongOver, extendBreakALittle},
    {Step::extendBreak,            'e', "extend by 5 min", "", "The break is longer now, and still over.", isLongOver, extendBreakALittle},
    {Step::endBreak,               's', "skip the break", "", "The break is skipped.", isBeforeTime, run<&Engine::skipBreak>},
    {Step::endBreak,               's', "end the break",  "", "The break has ended.", isOvertime, run<&Engine::endBreak>},
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

bool isOfThisPlace(const Action& action, const QuillmereState& state)
{
    return transition(action.step).accepts == state.workflowState;
}

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

const Action* actionOn(char key, const workspace::Situation& situation)
{
    for (const Action* action : actionsFor(situation)) {
        if (action->key == key) {
            return action;
        }
    }
    for (const Action& action : actions) {
        if (action.key == key && isOfThisPlace(action, situation.state)) {
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
    fatalError("quillmere: a form is saved by a step that has no form");
}

}  // namespace quillmere::screen
