#include "work/actions.hpp"

#include "amendments/back_out.hpp"
#include "amendments/change_length.hpp"
#include "amendments/drop.hpp"
#include "amendments/finish_now.hpp"
#include "amendments/go_on.hpp"
#include "amendments/reset.hpp"
#include "work/break_extension.hpp"
#include "work/done_text.hpp"
#include "work/forms/forms.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/records/base/fatal_error.hpp>

#include <array>

namespace quillmere::work {
namespace {

using workspace::Situation;

constexpr WorkflowEngine engine;

bool atAnyTime(const Situation&) { return true; }

bool isOvertime(const Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    return timer && timer->remainingSeconds <= 0;
}

bool isBeforeTime(const Situation& situation) { return !isOvertime(situation); }

/// Whether the break stays over after the usual extension.
bool isLongOver(const Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    return timer && static_cast<double>(timer->remainingSeconds) + usualExtension <= 0;
}

bool isNotLongOver(const Situation& situation) { return !isLongOver(situation); }

bool isNewBlock(const Situation& situation)
{
    return !situation.state.currentBlock || !situation.state.currentBlock->plannedStart;
}

bool hasStartToCome(const Situation& situation)
{
    return !isNewBlock(situation) && *situation.state.currentBlock->plannedStart > situation.now;
}

bool hasPassedStart(const Situation& situation)
{
    return !isNewBlock(situation) && !hasStartToCome(situation);
}

bool hasReviewedSession(const Situation& situation)
{
    return work::reviewedSession(situation.state) != nullptr;
}

void extendBreakALittle(QuillmereState& state, Instant now) { extendBreak(state, usualExtension, now); }

void goOnALittle(QuillmereState& state, Instant now)
{
    amendments::goOn(state, usualExtension, amendments::TimeSinceEnd::countsAsFocus, now);
}

template <int factor>
void changeLengthALittle(QuillmereState& state, Instant now)
{
    amendments::changeLength(state, factor * usualExtension, now);
}

void leavePlanning(QuillmereState& state, Instant now) { amendments::backOut(state, {}, now); }

template <class Choice>
void leavePlanningAfterStart(QuillmereState& state, Instant now)
{
    amendments::backOut(state, Choice{}, now);
}

void finish(QuillmereState& state, Instant now) { amendments::finishNow(state, now); }

template <void (WorkflowEngine::*operation)(QuillmereState&, Instant) const>
void run(QuillmereState& state, Instant now)
{
    (engine.*operation)(state, now);
}

using Engine = WorkflowEngine;
using Kind = amendments::Kind;

static_assert(usualExtension == 5 * 60, "the labels say 5 min");

constexpr std::string_view typedStays = "Leave the planning? What you typed stays a draft.";

// clang-format off
constexpr auto actions = std::to_array<Action>({
    {ActionId::planBlock,       Step::beginBlockPlanning,     atAnyTime, "plan a block", run<&Engine::beginBlockPlanning>, "What is this block about?"},
    {ActionId::startScheduled,  Step::startScheduledBlockNow, atAnyTime, "start it now", run<&Engine::startScheduledBlockNow>, done::blockBegun},
    {ActionId::editScheduled,   Step::editScheduledBlock,     atAnyTime, "edit it", run<&Engine::editScheduledBlock>, done::scheduleEdited},
    {ActionId::cancelScheduled, Step::cancelScheduledBlock,   atAnyTime, "cancel it", run<&Engine::cancelScheduledBlock>, done::scheduleCancelled, Asks::always, "Discard the scheduled block?"},

    {ActionId::leavePlanning,   Kind::backOut, isNewBlock,     "leave", leavePlanning, done::planningLeft, Asks::ifTyped, typedStays},
    {ActionId::leavePlanning,   Kind::backOut, hasStartToCome, "leave it as it was", leavePlanning, done::scheduleKept, Asks::ifTyped, typedStays},
    {ActionId::startPassed,     Kind::backOut, hasPassedStart, "its start has passed: start it now", leavePlanningAfterStart<amendments::StartNow>, done::blockBegun},
    {ActionId::delayPassed,     Kind::backOut, hasPassedStart, "give it another time", FormKind::anotherStart},
    {ActionId::drop,            Kind::backOut, hasPassedStart, "drop it", leavePlanningAfterStart<amendments::DropBlock>, done::blockDropped, Asks::always, "Drop the block? Its words stay a draft."},
    {ActionId::drop,            Kind::drop,    atAnyTime,      "drop the block", amendments::drop, done::blockDropped, Asks::always, "Drop the block? Its words stay a draft."},

    {ActionId::pause,           Step::pauseFocus,   atAnyTime, "pause", run<&Engine::pauseFocus>, done::focusPaused},
    {ActionId::resume,          Step::resumeFocus,  atAnyTime, "go on", run<&Engine::resumeFocus>, done::focusResumed},
    {ActionId::lengthen,        Kind::changeLength, atAnyTime, "5 min more", changeLengthALittle<1>, done::focusLengthened},
    {ActionId::shorten,         Kind::changeLength, atAnyTime, "5 min less", changeLengthALittle<-1>, done::focusShortened},
    {ActionId::lengthen,        Kind::goOn,         atAnyTime, "go on for 5 min", goOnALittle, done::focusWentOn},
    {ActionId::lengthen,        Step::extendBreak,  isNotLongOver, "5 min more", extendBreakALittle, done::breakExtended},
    {ActionId::lengthen,        Step::extendBreak,  isLongOver, "5 min more", extendBreakALittle, done::breakExtendedAndOver},
    {ActionId::endFocus,        Step::endFocus,     atAnyTime, "end", run<&Engine::endFocus>, done::focusEnded, Asks::always, "End the session before its time?"},
    {ActionId::endBreak,        Step::endBreak,     isBeforeTime, "skip the break", run<&Engine::skipBreak>, done::breakSkipped},
    {ActionId::endBreak,        Step::endBreak,     isOvertime, "end the break", run<&Engine::endBreak>, done::breakEnded},

    {ActionId::chooseLength,    Kind::changeLength, atAnyTime, "make it longer or shorter", FormKind::length},
    {ActionId::chooseLength,    Kind::goOn,         atAnyTime, "go on with the session", FormKind::goOn},
    {ActionId::chooseLength,    Step::extendBreak,  atAnyTime, "make the break longer", FormKind::length},
    {ActionId::endEarlier,      Kind::forgotToEnd,  atAnyTime, "it ended earlier", FormKind::earlierEnd},
    {ActionId::wasAway,         Kind::wasAway,      atAnyTime, "you were away", FormKind::away},
    {ActionId::finishNow,       Kind::finishNow,    atAnyTime, "finish the block", finish, done::blockAtItsEnd, Asks::always, "Finish the block? Its remaining sessions are left out."},
    {ActionId::changeBlock,     Kind::change,       atAnyTime, "change the block", FormKind::blockChange},
    {ActionId::correctSession,  Kind::correct,      hasReviewedSession, "correct the last session", FormKind::correction},
    {ActionId::reset,           Kind::reset,        atAnyTime, "reset the work", amendments::reset, done::workReset, Asks::always, "No step leads on from here. Reset the work?"},
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
    {Step::extendBreak,             "change the length", done::breakExtended},
    {Kind::backOut,                 "schedule",         done::blockScheduled},
    {Kind::finishWithReview,        "save, finish the block", done::reviewSavedAndFinished},
    {Kind::change,                  "change the block", done::blockChanged},
    {Kind::changeLength,            "change the length", done::focusLengthChanged},
    {Kind::goOn,                    "go on",            done::focusWentOn},
    {Kind::forgotToEnd,             "end it then",      done::focusEnded},
    {Kind::wasAway,                 "make it a pause",  done::pauseAdded},
    {Kind::correct,                 "correct",          done::recordCorrected},
});
// clang-format on

}  // namespace

std::vector<const Action*> actionsFor(const Situation& situation)
{
    std::vector<const Action*> possible;
    for (const Action& action : actions) {
        if (isPossible(action.move, situation.state) && action.fits(situation)) {
            possible.push_back(&action);
        }
    }
    return possible;
}

const Action* actionFor(ActionId id, const Situation& situation)
{
    for (const Action* const action : actionsFor(situation)) {
        if (action->id == id) {
            return action;
        }
    }
    return nullptr;
}

const Saving& savingFor(const Move& move)
{
    for (const Saving& saving : savings) {
        if (saving.move == move) {
            return saving;
        }
    }
    fatalError("quillmere: a form is saved by a move without a row in the table of savings");
}

}  // namespace quillmere::work
