// The page of a focus session or a break: the time in large digits, and the plan.
#include "screen/canvas/big_digits.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"
#include "work/timer_text.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::screen {
namespace {

using namespace QuillmereDesign;

constexpr std::size_t mostBarColumns = 48;

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

void writeTimer(Canvas& canvas, Flow& flow, const work::SituationView& view, QuillmereWidgetLayout layout,
                const base::SeenFrom& here)
{
    if (!view.timer) {
        return;
    }
    const std::string end = work::endText(*view.timer, here);
    if (end.empty()) {
        flow.centred(work::timeText(*view.timer, here), {.bold = true});
    } else {
        const Look look{.accent = view.accent, .bold = !view.timer->isPaused, .dim = view.timer->isPaused};
        drawBigDigits(canvas, flow.rest(), work::timeText(*view.timer, here), look);
        flow.skip(bigDigitRows);
    }
    flow.space(layout == QuillmereWidgetLayout::compact ? Spacing::none : Spacing::regular);
    const std::size_t columns = std::min(flow.rest().columns, mostBarColumns);
    flow.centred(barOf(view.timer->usedShare, columns), {.accent = view.accent});
    if (showsFullPlan(layout)) {
        flow.space(Spacing::snug);
        flow.centred(end, {.dim = true});
    }
}

}  // namespace

void drawCountdown(Canvas& canvas, const Area& area, const work::SituationView& view,
                   const work::Recall& recall, const base::SeenFrom& here)
{
    const QuillmereWidgetFamily family = familyFor(canvas.size());
    const bool isCompact = layout(family) == QuillmereWidgetLayout::compact;
    const std::size_t gap = columnsOf(Spacing::section);
    Area left = area;
    if (prefersTwoColumns(family)) {
        left.columns = (area.columns - gap) / 2;
    }
    Flow flow(canvas, left);
    writeTimer(canvas, flow, view, layout(family), here);
    flow.space(isCompact ? Spacing::none : Spacing::regular);
    const Area beside{area.row, left.column + left.columns + gap, area.rows, left.columns};
    drawRecall(canvas, prefersTwoColumns(family) ? beside : flow.rest(), recall,
               {.accent = view.accent, .bold = true});
}

}  // namespace quillmere::screen
