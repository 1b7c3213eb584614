#include "work/situation_view.hpp"

#include "amendments/possible.hpp"
#include "work/countdown.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

#include <array>
#include <iterator>

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

std::optional<TimerView> timerOf(const workspace::Situation& situation)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    if (!timer) {
        return std::nullopt;
    }
    return TimerView{
        .remainingSeconds = timer->remainingSeconds,
        .isPaused = timer->isPaused,
        .usedShare = usedShare(situation).value_or(0),
        .end = situation.now + static_cast<double>(timer->remainingSeconds),
        .pausedSince = timer->isPaused ? situation.state.currentSession()->pausedAt : std::nullopt};
}

std::optional<SessionPlan> planOf(const QuillmereState& state)
{
    if (state.workflowState == WorkflowState::focusing) {
        const WorkSession* const session = state.currentSession();
        return session ? std::optional(session->plan) : std::nullopt;
    }
    return state.plannedNextSession;
}

/// The library's caption, except where the page is about the block and the caption about a session.
std::string captionOf(const WidgetSnapshot& snapshot, WorkflowState state)
{
    switch (state) {
        case WorkflowState::blockPlanning: return "Plan the block";
        case WorkflowState::blockReview: return "Look back on the block";
        default: return QuillmereDesign::caption(snapshot);
    }
}

}  // namespace

SituationView SituationView::of(const workspace::Situation& situation)
{
    const QuillmereState& state = situation.state;
    const WidgetSnapshot snapshot = WidgetSnapshot::make(state, situation.now);
    SituationView view{.phase = snapshot.phase,
                       .accent = QuillmereDesign::accent(snapshot.phase),
                       .title = quillmere::title(snapshot.phase),
                       .caption = captionOf(snapshot, state.workflowState),
                       .timer = timerOf(situation),
                       .session = {},
                       .schedule = {},
                       .plan = planOf(state),
                       .intendedOutcome = snapshot.intendedOutcome,
                       .firstAction = snapshot.firstAction,
                       .outcomeServed = {},
                       .openQuestionCount = state.openQuestions().size(),
                       .nextCommands = nextCommandsOf(state)};
    if (const std::optional<Block>& block = state.currentBlock) {
        view.session = SessionView{.number = std::ssize(block->sessions), .count = block->cycleCount};
        const Outcome* const served = view.plan ? block->outcomeServed(*view.plan) : nullptr;
        view.outcomeServed = served ? served->title : "";
        if (state.workflowState == WorkflowState::idle && block->plannedStart) {
            view.schedule = ScheduleView{.start = *block->plannedStart, .end = block->plannedEnd()};
        }
    }
    return view;
}

}  // namespace quillmere::work
