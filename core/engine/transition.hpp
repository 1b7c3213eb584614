// The map of the workflow as one table. Every operation of the engine starts by requiring that its row is
// possible and ends by setting its row's result; nothing else changes the workflow state.
#pragma once

#include <quillmere/engine/guard.hpp>
#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <array>
#include <optional>
#include <string_view>

namespace quillmere {

/// One step of the workflow: a row of the table. An operation with two results has two steps.
enum class Step {
    beginBlockPlanning,
    startBlock,
    scheduleBlock,
    editScheduledBlock,
    cancelScheduledBlock,
    startScheduledBlockNow,
    evaluateSchedule,
    startFocus,
    pauseFocus,
    resumeFocus,
    endFocus,
    saveReviewAndStartBreak,
    saveLastReview,
    announceBreakEnd,
    extendBreak,
    endBreak,
    completeBlockReview,
    addQuestion,
    answerQuestion,
};

struct Transition {
    Step value;
    std::string_view operation;            ///< the operation of WorkflowEngine that takes the step
    std::optional<WorkflowState> accepts;  ///< absent: any state
    Guard guard;                           ///< what else must hold in the state
    std::optional<WorkflowState> result;   ///< absent: the state stays the same
    std::string_view arguments;            ///< what the operation asks of its arguments; empty for nothing
};

namespace transition_table {

using enum WorkflowState;
inline constexpr std::nullopt_t any = std::nullopt;
inline constexpr std::nullopt_t same = std::nullopt;

// clang-format off
inline constexpr auto rows = std::to_array<Transition>({
    // step                         operation                  accepts          guard                         result           arguments
    {Step::beginBlockPlanning,      "beginBlockPlanning",      idle,            guards::noBlock,              blockPlanning,   ""},
    {Step::startBlock,              "startBlock",              blockPlanning,   guards::none,                 sessionPlanning, "durations and a cycle count above zero"},
    {Step::scheduleBlock,           "scheduleBlock",           blockPlanning,   guards::none,                 idle,            "a planned start; durations and a cycle count above zero"},
    {Step::editScheduledBlock,      "editScheduledBlock",      idle,            guards::scheduledBlock,       blockPlanning,   ""},
    {Step::cancelScheduledBlock,    "cancelScheduledBlock",    idle,            guards::scheduledBlock,       idle,            ""},
    {Step::startScheduledBlockNow,  "startScheduledBlockNow",  idle,            guards::scheduledBlock,       sessionPlanning, ""},
    {Step::evaluateSchedule,        "evaluateSchedule",        idle,            guards::untriggeredBlock,     sessionPlanning, "`now` at the planned start or later"},
    {Step::startFocus,              "startFocus",              sessionPlanning, guards::cyclesLeft,           focusing,        "a plan, given or saved, with ratings 1 to 5"},
    {Step::pauseFocus,              "pauseFocus",              focusing,        guards::runningSession,       focusing,        ""},
    {Step::resumeFocus,             "resumeFocus",             focusing,        guards::pausedSession,        focusing,        ""},
    {Step::endFocus,                "endFocus",                focusing,        guards::session,              sessionReview,   ""},
    {Step::saveReviewAndStartBreak, "saveReviewAndStartBreak", sessionReview,   guards::sessionAndCyclesLeft, breaking,        "a next plan with ratings 1 to 5"},
    {Step::saveLastReview,          "saveReviewAndStartBreak", sessionReview,   guards::sessionOfLastCycle,   blockReview,     "ratings 1 to 5 if a next plan is given"},
    {Step::announceBreakEnd,        "evaluateTimer",           breaking,        guards::unannouncedBreak,     breaking,        "`now` at the end of the break or later"},
    {Step::extendBreak,             "extendBreak",             breaking,        guards::none,                 breaking,        "seconds above zero"},
    {Step::endBreak,                "endBreak",                breaking,        guards::none,                 sessionPlanning, ""},
    {Step::completeBlockReview,     "completeBlockReview",     blockReview,     guards::block,                idle,            ""},
    {Step::addQuestion,             "addQuestion",             any,             guards::none,                 same,            ""},
    {Step::answerQuestion,          "answerQuestion",          any,             guards::question,             same,            "the identifier of a question"},
});
// clang-format on

}  // namespace transition_table

static_assert(inCaseOrder(transition_table::rows));

constexpr const Transition& transition(Step step) { return rowOf(transition_table::rows, step); }

/// Whether the step can be taken in this state: its workflow state is accepted and its guard holds. Its
/// operation then succeeds, given arguments and a `now` that it accepts; otherwise it refuses or, for an
/// evaluation, does nothing.
constexpr bool isPossible(Step step, const QuillmereState& state)
{
    const Transition& row = transition(step);
    return row.accepts.value_or(state.workflowState) == state.workflowState && row.guard.holds(state);
}

}  // namespace quillmere
