#include "work/situation_view.hpp"

#include "amendments/possible.hpp"

#include <array>
#include <iterator>
#include <utility>

namespace quillmere::work {
namespace {

/// The command that takes a step.
struct StepCommand {
    Step step;
    std::string_view command;
};

// In the order in which a person is told of them.
constexpr auto stepCommands = std::to_array<StepCommand>({
    {Step::beginBlockPlanning, "plan"},
    {Step::beginBlockPlanning, "now"},
    {Step::startBlock, "plan"},
    {Step::startScheduledBlockNow, "start"},
    {Step::editScheduledBlock, "edit"},
    {Step::cancelScheduledBlock, "cancel"},
    {Step::startFocus, "focus"},
    {Step::startFocus, "now"},
    {Step::pauseFocus, "pause"},
    {Step::resumeFocus, "resume"},
    {Step::endFocus, "end"},
    {Step::saveReviewAndStartBreak, "review"},
    {Step::saveLastReview, "review"},
    {Step::endBreak, "break end"},
    {Step::extendBreak, "break extend"},
    {Step::completeBlockReview, "reflect"},
});

std::vector<std::string_view> nextCommandsOf(const QuillmereState& state)
{
    std::vector<std::string_view> commands;
    for (const StepCommand& row : stepCommands) {
        if (isPossible(row.step, state)) {
            commands.push_back(row.command);
        }
    }
    for (const std::string_view command : amendments::possibleCommands(state)) {
        commands.push_back(command);
    }
    return commands;
}

std::optional<SessionPlan> planOf(const QuillmereState& state)
{
    if (state.workflowState == WorkflowState::focusing) {
        const WorkSession* const session = state.currentSession();
        return session ? std::optional(session->plan) : std::nullopt;
    }
    return state.plannedNextSession;
}

}  // namespace

SituationView SituationView::of(const workspace::Situation& situation)
{
    const QuillmereState& state = situation.state;
    ShortView brief = ShortView::of(situation);
    SituationView view{.phase = brief.snapshot.phase,
                       .accent = QuillmereDesign::accent(brief.snapshot.phase),
                       .title = quillmere::title(brief.snapshot.phase),
                       .caption = std::move(brief.heading),
                       .timer = brief.timer,
                       .overSince = brief.overSince,
                       .session = {},
                       .schedule = brief.schedule,
                       .plan = planOf(state),
                       .intendedOutcome = std::move(brief.snapshot.intendedOutcome),
                       .firstAction = std::move(brief.snapshot.firstAction),
                       .outcomeServed = {},
                       .openQuestionCount = state.openQuestions().size(),
                       .nextCommands = nextCommandsOf(state)};
    if (const std::optional<Block>& block = state.currentBlock) {
        view.session = SessionView{.number = std::ssize(block->sessions), .count = block->cycleCount};
        const Outcome* const served = view.plan ? block->outcomeServed(*view.plan) : nullptr;
        view.outcomeServed = served ? served->title : "";
    }
    return view;
}

}  // namespace quillmere::work
