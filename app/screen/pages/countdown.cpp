// A focus session or a break: the time in large digits, and the plan in view.
#include "work/countdown.hpp"
#include "screen/big_digits.hpp"
#include "screen/flow.hpp"
#include "screen/layout.hpp"
#include "screen/pages/pages.hpp"

#include <quillmere/engine/timer_snapshot.hpp>

#include <algorithm>
#include <cmath>

namespace quillmere::screen {
namespace {

using namespace QuillmereDesign;

constexpr std::size_t mostBarColumns = 48;
constexpr std::int64_t mostDots = 16;

std::string repeated(std::string_view sign, std::size_t count)
{
    std::string text;
    for (std::size_t index = 0; index < count; ++index) {
        text += sign;
    }
    return text;
}

std::string barOf(double share, std::size_t columns)
{
    const auto filled = static_cast<std::size_t>(std::lround(share * static_cast<double>(columns)));
    return repeated("█", filled) + repeated("░", columns - filled);
}

/// The sessions of the block: begun ones, and those to come.
std::string dotsOfSessions(const Block& block)
{
    std::string dots;
    for (std::int64_t number = 1; number <= block.cycleCount; ++number) {
        dots += std::string(dots.empty() ? "" : " ") + (number <= std::ssize(block.sessions) ? "●" : "○");
    }
    return dots;
}

/// The plan of the session that runs, or of the one that comes next.
const SessionPlan* planInView(const QuillmereState& state)
{
    if (state.workflowState == WorkflowState::focusing) {
        const WorkSession* const session = state.currentSession();
        return session ? &session->plan : nullptr;
    }
    return state.plannedNextSession ? &*state.plannedNextSession : nullptr;
}

std::string titleOfOutcome(const QuillmereState& state, const SessionPlan& plan)
{
    for (const Outcome& outcome :
         state.currentBlock ? state.currentBlock->outcomes : std::vector<Outcome>()) {
        if (plan.blockOutcomeID == outcome.id) {
            return outcome.title;
        }
    }
    return {};
}

void writePlan(Flow& flow, const workspace::Situation& situation, bool isFull)
{
    const SessionPlan* const plan = planInView(situation.state);
    if (!plan) {
        return;
    }
    const std::size_t most = isFull ? 3 : 1;
    flow.field("Outcome", WidgetSnapshot::make(situation.state, situation.now).intendedOutcome, most);
    flow.field("First action", plan->firstAction, most);
    if (isFull) {
        flow.field("In the way", plan->hazardsMitigation, most);
        flow.field("View", plan->nicuFraming, most);
        flow.field("Towards", titleOfOutcome(situation.state, *plan), most);
        flow.field("Energy", std::to_string(plan->energy) + " of 5");
        flow.field("Mood", std::to_string(plan->morale) + " of 5");
    }
}

void writeTimer(Canvas& canvas, Flow& flow, const workspace::Situation& situation,
                QuillmereWidgetLayout layout)
{
    const auto timer = TimerSnapshot::derive(situation.state, situation.now);
    if (!timer) {
        return;
    }
    const Accent colour = accent(fromWorkflowState<WidgetPhase>(situation.state.workflowState));
    const Look look{.accent = colour, .bold = !timer->isPaused, .dim = timer->isPaused};
    drawBigDigits(canvas, flow.rest(), timeText(timer->remainingSeconds), look);
    flow.skip(bigDigitRows);
    flow.space(layout == QuillmereWidgetLayout::compact ? Spacing::none : Spacing::regular);
    const std::size_t columns = std::min(flow.rest().columns, mostBarColumns);
    flow.centred(barOf(work::usedShare(situation).value_or(0), columns), {.accent = colour});
    const std::optional<Block>& block = situation.state.currentBlock;
    if (showsFullPlan(layout) && block && block->cycleCount <= mostDots) {
        flow.space(Spacing::snug);
        flow.centred(dotsOfSessions(*block), {.dim = true});
    }
}

}  // namespace

void drawCountdown(Canvas& canvas, const Area& area, const workspace::Situation& situation)
{
    const QuillmereWidgetFamily family = familyFor(canvas.size());
    const bool isCompact = layout(family) == QuillmereWidgetLayout::compact;
    const bool isFull = showsFullPlan(layout(family));
    const std::size_t gap = columnsOf(Spacing::section);
    Area left = area;
    if (prefersTwoColumns(family)) {
        left.columns = (area.columns - gap) / 2;
    }
    Flow flow(canvas, left);
    writeTimer(canvas, flow, situation, layout(family));
    flow.space(isFull ? Spacing::section : isCompact ? Spacing::none : Spacing::regular);
    Flow beside(canvas, {area.row, left.column + left.columns + gap, area.rows, left.columns});
    Flow& plan = prefersTwoColumns(family) ? beside : flow;
    if (!isCompact && situation.state.workflowState == WorkflowState::breaking &&
        planInView(situation.state)) {
        plan.line("The next session", {.accent = accent(WidgetPhase::planning), .bold = true});
    }
    writePlan(plan, situation, isFull);
}

}  // namespace quillmere::screen
