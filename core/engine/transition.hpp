// The map of the workflow. The engine runs on this table: an operation opens by requiring its row and
// ends by finishing with it, and nothing else moves the workflow.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/workflow_state.hpp>

#include <array>
#include <optional>
#include <string_view>

namespace quillmere {

/// One arrow of the map. An operation with two results has two.
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
    std::string_view operation;            ///< the operation of WorkflowEngine
    std::optional<WorkflowState> accepts;  ///< absent: any state
    std::optional<WorkflowState> result;   ///< absent: the state it was in
    std::string_view condition;            ///< what else must hold; empty for nothing
};

namespace transition_table {

using enum WorkflowState;
inline constexpr std::nullopt_t any = std::nullopt;
inline constexpr std::nullopt_t same = std::nullopt;

// clang-format off
inline constexpr auto rows = std::to_array<Transition>({
    // step                         operation                  accepts          result           condition
    {Step::beginBlockPlanning,      "beginBlockPlanning",      idle,            blockPlanning,   "no block waits"},
    {Step::startBlock,              "startBlock",              blockPlanning,   sessionPlanning, "durations and cycle count above zero"},
    {Step::scheduleBlock,           "scheduleBlock",           blockPlanning,   idle,            "a planned start; durations and cycle count above zero"},
    {Step::editScheduledBlock,      "editScheduledBlock",      idle,            blockPlanning,   "a scheduled block waits"},
    {Step::cancelScheduledBlock,    "cancelScheduledBlock",    idle,            idle,            "a scheduled block waits"},
    {Step::startScheduledBlockNow,  "startScheduledBlockNow",  idle,            sessionPlanning, "a scheduled block waits"},
    {Step::evaluateSchedule,        "evaluateSchedule",        idle,            sessionPlanning, "the planned start has come"},
    {Step::startFocus,              "startFocus",              sessionPlanning, focusing,        "cycles remain; a plan with ratings 1 to 5"},
    {Step::pauseFocus,              "pauseFocus",              focusing,        focusing,        "not paused"},
    {Step::resumeFocus,             "resumeFocus",             focusing,        focusing,        "paused"},
    {Step::endFocus,                "endFocus",                focusing,        sessionReview,   ""},
    {Step::saveReviewAndStartBreak, "saveReviewAndStartBreak", sessionReview,   breaking,        "cycles remain; a next plan with ratings 1 to 5"},
    {Step::saveLastReview,          "saveReviewAndStartBreak", sessionReview,   blockReview,     "after the last cycle"},
    {Step::announceBreakEnd,        "evaluateTimer",           breaking,        breaking,        "the break time is used up, not announced yet"},
    {Step::extendBreak,             "extendBreak",             breaking,        breaking,        "by more than zero"},
    {Step::endBreak,                "endBreak",                breaking,        sessionPlanning, ""},
    {Step::completeBlockReview,     "completeBlockReview",     blockReview,     idle,            ""},
    {Step::addQuestion,             "addQuestion",             any,             same,            ""},
    {Step::answerQuestion,          "answerQuestion",          any,             same,            "the question exists"},
});
// clang-format on

}  // namespace transition_table

static_assert(inCaseOrder(transition_table::rows));

constexpr const Transition& transition(Step step) { return rowOf(transition_table::rows, step); }

}  // namespace quillmere
