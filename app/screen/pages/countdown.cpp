// The page of a focus session or a break: the time in large digits, and the plan.
#include "screen/canvas/big_digits.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

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

/// One dot for each session of the block, filled when the session has begun.
std::string dotsOfSessions(const work::SessionView& session)
{
    std::string dots;
    for (std::int64_t number = 1; number <= session.count; ++number) {
        dots += std::string(dots.empty() ? "" : " ") + (number <= session.number ? "●" : "○");
    }
    return dots;
}

void writePlan(Flow& flow, const work::SituationView& view, bool isFull)
{
    if (!view.plan) {
        return;
    }
    const std::size_t most = isFull ? 3 : 1;
    flow.field("Outcome", view.intendedOutcome, most);
    flow.field("First action", view.plan->firstAction, most);
    if (isFull) {
        flow.field("In the way", view.plan->hazardsMitigation, most);
        flow.field("View", view.plan->nicuFraming, most);
        flow.field("Towards", view.outcomeServed, most);
        flow.field("Energy", std::to_string(view.plan->energy) + " of 5");
        flow.field("Morale", std::to_string(view.plan->morale) + " of 5");
    }
}

void writeTimer(Canvas& canvas, Flow& flow, const work::SituationView& view, QuillmereWidgetLayout layout)
{
    if (!view.timer) {
        return;
    }
    const Look look{.accent = view.accent, .bold = !view.timer->isPaused, .dim = view.timer->isPaused};
    drawBigDigits(canvas, flow.rest(), timeText(view.timer->remainingSeconds), look);
    flow.skip(bigDigitRows);
    flow.space(layout == QuillmereWidgetLayout::compact ? Spacing::none : Spacing::regular);
    const std::size_t columns = std::min(flow.rest().columns, mostBarColumns);
    flow.centred(barOf(view.timer->usedShare, columns), {.accent = view.accent});
    if (showsFullPlan(layout) && view.session && view.session->count <= mostDots) {
        flow.space(Spacing::snug);
        flow.centred(dotsOfSessions(*view.session), {.dim = true});
    }
}

}  // namespace

void drawCountdown(Canvas& canvas, const Area& area, const work::SituationView& view)
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
    writeTimer(canvas, flow, view, layout(family));
    flow.space(isFull ? Spacing::section : isCompact ? Spacing::none : Spacing::regular);
    Flow beside(canvas, {area.row, left.column + left.columns + gap, area.rows, left.columns});
    Flow& plan = prefersTwoColumns(family) ? beside : flow;
    if (!isCompact && view.phase == WidgetPhase::breaking && view.plan) {
        plan.line("The next session", {.accent = accent(WidgetPhase::planning), .bold = true});
    }
    writePlan(plan, view, isFull);
}

}  // namespace quillmere::screen
