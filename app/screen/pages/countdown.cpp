// The page of a focus session or a break: the time in large digits, the sessions as signs, and what helps.
#include "screen/canvas/big_digits.hpp"
#include "screen/canvas/characters.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"
#include "work/recall/session_signs.hpp"
#include "work/timer_text.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

using namespace QuillmereDesign;

/// A time in the past is the widest text beside the bar: "paused since 2:31 pm".
constexpr std::size_t columnsBesideBar = 22;
constexpr std::size_t leastBar = 8;
/// The digits are at most this part of the window's height.
constexpr std::size_t partOfHeight = 5;

/// The timer from top to bottom, every row beginning in the same column.
class TimerColumn {
public:
    TimerColumn(Canvas& canvas, const Area& area, const work::SituationView& view, const base::SeenFrom& here)
        : canvas_(canvas),
          flow_(canvas, area),
          view_(view),
          timer_(*view.timer),
          here_(here),
          isRoomy_(showsFullPlan(layout(familyFor(canvas.size()))))
    {
    }

    Flow& flow() { return flow_; }

    void drawTime()
    {
        const std::string end = work::endText(timer_, here_);
        const std::string time = work::timeText(timer_, here_);
        std::size_t columns = widestBar;
        if (end.empty()) {
            // Over since when is a sentence, in ink.
            flow_.line(time, {.bold = true});
        } else {
            const BigDigits digits(time, roomForDigits());
            digits.draw(canvas_, {flow_.rest().row, flow_.rest().column},
                        timer_.isPaused ? DigitStyle::hollow : DigitStyle::full, {.accent = accent()});
            flow_.skip(digits.rows());
            columns = std::max(digits.columns(), leastBar);
        }
        flow_.skip(isRoomy_ ? 1 : 0);
        drawBar(columns, end);
    }

    void drawSigns(const Block& block)
    {
        flow_.skip(1);
        std::size_t column = flow_.rest().column;
        for (const work::SessionSign& sign : work::sessionSigns(block)) {
            const bool isRunning = sign.text == "◐";
            column += canvas_.write({flow_.rest().row, column}, sign.text,
                                    {.accent = isRunning ? std::optional(accent()) : std::nullopt,
                                     .completion = sign.completion,
                                     .bold = isRunning,
                                     .dim = !isRunning && !sign.completion},
                                    flow_.rest().column + flow_.rest().columns - column) +
                      gapOfSigns;
        }
        flow_.skip(1);
    }

private:
    static constexpr std::size_t widestBar = 34;
    static constexpr std::size_t gapOfSigns = 2;

    /// A pause takes the colour away.
    Accent accent() const { return timer_.isPaused ? Accent::neutral : view_.accent; }

    Size roomForDigits() const
    {
        const std::size_t most = std::max(BigDigits::leastRows, canvas_.size().rows / partOfHeight);
        return {.rows = std::min(flow_.rowsLeft(), most), .columns = flow_.rest().columns};
    }

    void drawBar(std::size_t columns, const std::string& end)
    {
        const std::size_t gap = columnsOf(Spacing::regular);
        const std::size_t beside = end.empty() ? 0 : gap + shownColumns(end);
        const std::size_t room = flow_.rest().columns;
        const bool isBeside = beside > 0 && beside + leastBar <= room;
        columns = std::min(columns, isBeside ? room - beside : room);
        const Place place{flow_.rest().row, flow_.rest().column};
        drawShare(canvas_, place, columns, timer_.usedShare, {.accent = accent()});
        if (isBeside) {
            canvas_.write({place.row, place.column + columns + gap}, end, {.dim = true});
        }
        flow_.skip(1);
    }

    Canvas& canvas_;
    Flow flow_;
    const work::SituationView& view_;
    const work::TimerView& timer_;
    const base::SeenFrom& here_;
    bool isRoomy_;
};

/// The columns for the timer beside the recall.
std::size_t columnsOfTimer(const Area& area, Size window)
{
    const std::size_t most = std::max(BigDigits::leastRows, window.rows / partOfHeight);
    const BigDigits usual("00:00", {.rows = most, .columns = area.columns / 2});
    return usual.columns() + columnsBesideBar;
}

}  // namespace

void drawCountdown(Canvas& canvas, const Area& area, const workspace::Situation& situation,
                   const work::Recall& recall, base::Hours hours)
{
    const base::SeenFrom here(situation.now, hours);
    const work::SituationView view = work::SituationView::of(situation);
    const QuillmereWidgetFamily family = familyFor(canvas.size());
    const bool isFull = showsFullPlan(layout(family));
    Area left = area;
    if (prefersTwoColumns(family)) {
        left.column += columnsOf(Spacing::section);
        left.columns = columnsOfTimer(area, canvas.size());
    }
    TimerColumn column(canvas, left, view, here);
    column.drawTime();
    if (isFull && situation.state.currentBlock) {
        column.drawSigns(*situation.state.currentBlock);
    }
    const std::size_t taken = left.column - area.column + left.columns + columnsOf(Spacing::regular);
    const Area beside{area.row, area.column + taken, area.rows, area.columns - std::min(area.columns, taken)};
    column.flow().skip(isFull ? 1 : 0);
    drawRecall(canvas, prefersTwoColumns(family) ? beside : column.flow().rest(), recall, {.bold = true});
}

}  // namespace quillmere::screen
