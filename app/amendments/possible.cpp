#include "amendments/possible.hpp"

#include "amendments/standing_block.hpp"

#include <quillmere/engine/transition.hpp>

#include <algorithm>
#include <array>

namespace quillmere::amendments {
namespace {

bool isPlanningBlock(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::blockPlanning;
}

bool isBeforeFirstSession(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::sessionPlanning && !state.currentSession();
}

bool isBetweenSessions(const QuillmereState& state)
{
    return (state.workflowState == WorkflowState::sessionPlanning && state.currentSession()) ||
           (state.workflowState == WorkflowState::breaking && state.currentBlock);
}

bool isInReview(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::sessionReview && state.currentSession();
}

bool isBeforeReview(const QuillmereState& state)
{
    return isInReview(state) && state.currentSession()->endedAt && !state.currentSession()->review;
}

bool isFocusing(const QuillmereState& state)
{
    return state.workflowState == WorkflowState::focusing && state.currentSession();
}

bool isFocusingOrBeforeReview(const QuillmereState& state)
{
    return isFocusing(state) || isBeforeReview(state);
}

bool hasFinishedBlock(const QuillmereState& state) { return !state.blockHistory.empty(); }

bool hasSomethingToCorrect(const QuillmereState& state)
{
    const auto hasEnded = [](const WorkSession& session) { return session.endedAt.has_value(); };
    const auto& block = state.currentBlock;
    return hasFinishedBlock(state) ||
           (block && std::any_of(block->sessions.begin(), block->sessions.end(), hasEnded));
}

/// Whether no step leads on. Between sessions there is another way out: `drop` or `finishNow`.
bool isStuck(const QuillmereState& state)
{
    const auto leadsOn = [&](const Transition& step) {
        return step.accepts && quillmere::isPossible(step.value, state);
    };
    const auto& rows = transition_table::rows;
    return state.workflowState != WorkflowState::sessionPlanning &&
           std::none_of(rows.begin(), rows.end(), leadsOn);
}

struct KindRow {
    Kind value;
    std::string_view command;
    bool (*fits)(const QuillmereState&);
};

// clang-format off
constexpr auto kindRows = std::to_array<KindRow>({
    {Kind::backOut,          "cancel",          isPlanningBlock},
    {Kind::drop,             "cancel",          isBeforeFirstSession},
    {Kind::finishNow,        "finish",          isBetweenSessions},
    {Kind::finishWithReview, "review --finish", isInReview},
    {Kind::change,           "change",          hasBegunBlock},
    {Kind::changeLength,     "extend",          isFocusing},
    {Kind::goOn,             "extend",          isBeforeReview},
    {Kind::forgotToEnd,      "end --at",        isFocusingOrBeforeReview},
    {Kind::wasAway,          "away",            isFocusing},
    {Kind::correct,          "amend",           hasSomethingToCorrect},
    {Kind::deleteBlock,      "delete",          hasFinishedBlock},
    {Kind::reset,            "reset",           isStuck},
});
// clang-format on
static_assert(inCaseOrder(kindRows));

}  // namespace

bool isPossible(Kind kind, const QuillmereState& state) { return rowOf(kindRows, kind).fits(state); }

std::vector<std::string_view> possibleCommands(const QuillmereState& state)
{
    std::vector<std::string_view> commands;
    for (const KindRow& row : kindRows) {
        const bool isOfThePast = row.value == Kind::correct || row.value == Kind::deleteBlock;
        const bool isNew = std::find(commands.begin(), commands.end(), row.command) == commands.end();
        if (isNew && !isOfThePast && row.fits(state)) {
            commands.push_back(row.command);
        }
    }
    return commands;
}

}  // namespace quillmere::amendments
