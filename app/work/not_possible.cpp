#include "work/not_possible.hpp"

#include "base/text/local_time.hpp"
#include "work/situation_view.hpp"
#include "work/timer_text.hpp"

#include <array>

namespace quillmere::work {
namespace {

/// What a command would need, as the beginning of a sentence.
struct Need {
    std::string_view command;
    std::string_view lack;
};

// clang-format off
constexpr auto needs = std::to_array<Need>({
    {"plan",         "No block can be planned now"},
    {"start",        "There is no scheduled block to start"},
    {"edit",         "There is no scheduled block to edit"},
    {"cancel",       "There is nothing to cancel"},
    {"focus",        "There is no session to begin"},
    {"now",          "No session can begin now"},
    {"pause",        "There is no running session to pause"},
    {"resume",       "There is no paused session to resume"},
    {"end",          "There is no focus session to end"},
    {"review",       "There is no session to review"},
    {"break extend", "There is no break to lengthen"},
    {"break end",    "There is no break to end"},
    {"break skip",   "There is no break to skip"},
    {"reflect",      "There is no block to reflect on"},
});
// clang-format on

/// Empty for a command whose place in the work is not what it lacks.
std::string_view lackOf(std::string_view command)
{
    for (const Need& need : needs) {
        if (need.command == command) {
            return need.lack;
        }
    }
    return {};
}

/// "session 2 of 4"; of a state without a block: "the session".
std::string sessionText(const QuillmereState& state, std::size_t number)
{
    return state.currentBlock
               ? "session " + std::to_string(number) + " of " + std::to_string(state.currentBlock->cycleCount)
               : "the session";
}

std::string idleText(const workspace::Situation& situation, base::Hours hours)
{
    const std::optional<Block>& block = situation.state.currentBlock;
    if (!block) {
        return "nothing is planned";
    }
    return block->plannedStart ? "the block is scheduled for " +
                                     base::localTextSeenFrom({situation.now, hours}, *block->plannedStart)
                               : "a block without a start waits";
}

/// "session 2 of 4 runs until 14:55", "the break is over since 14:55".
std::string timedText(const workspace::Situation& situation, base::Hours hours, const std::string& name)
{
    const std::optional<TimerView> timer = ShortView::of(situation).timer;
    if (!timer) {
        return name + " runs";
    }
    const base::SeenFrom here(situation.now, hours);
    const std::string end = endText(*timer, here);
    if (end.empty()) {
        return name + " is " + timeText(*timer, here);
    }
    return name + (timer->isPaused ? " is " : " runs ") + end;
}

std::string possibleText(const workspace::Situation& situation)
{
    std::string names;
    for (const std::string_view command : SituationView::of(situation).nextCommands) {
        names += (names.empty() ? "" : ", ") + std::string(command);
    }
    return "Possible: " + names + ".";
}

/// The options that give what is missing.
std::string wayOut(WorkflowError::Case reason)
{
    switch (reason) {
        case WorkflowError::missingSessionPlan: return "Give --outcome TEXT.";
        case WorkflowError::nextSessionPlanRequired:
            return "Give --next-outcome TEXT, or --finish, which ends the block.";
        case WorkflowError::ratingOutOfRange:
        case WorkflowError::invalidDuration:
        case WorkflowError::invalidTransition:
        case WorkflowError::missingBlock: break;
    }
    return "";
}

}  // namespace

std::string standText(const workspace::Situation& situation, base::Hours hours)
{
    const QuillmereState& state = situation.state;
    const std::size_t begun = state.currentBlock ? state.currentBlock->sessions.size() : 0;
    switch (state.workflowState) {
        case WorkflowState::idle: return idleText(situation, hours);
        case WorkflowState::blockPlanning: return "a block is being planned";
        case WorkflowState::sessionPlanning: return sessionText(state, begun + 1) + " is being planned";
        case WorkflowState::focusing: return timedText(situation, hours, sessionText(state, begun));
        case WorkflowState::sessionReview: return sessionText(state, begun) + " waits for its review";
        case WorkflowState::breaking: return timedText(situation, hours, "the break");
        case WorkflowState::blockReview: return "the block waits for its reflection";
        case WorkflowState::complete: break;
    }
    return "no step leads on";
}

std::string withPlace(std::string sentence, const workspace::Situation& situation, base::Hours hours)
{
    sentence.pop_back();
    return sentence + ": " + standText(situation, hours) + ". " + possibleText(situation);
}

std::string refusalText(const WorkflowError& error, std::string_view command,
                        const workspace::Situation& situation, base::Hours hours)
{
    const bool isMisplaced = error == WorkflowError::invalidTransition;
    const std::string lack(isMisplaced ? lackOf(command) : "");
    const std::string rest = lack.empty() ? wayOut(error.reason()) : withPlace(lack + ".", situation, hours);
    return error.errorDescription() + (rest.empty() ? "" : " ") + rest;
}

}  // namespace quillmere::work
