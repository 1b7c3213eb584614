// The work in a window that has no room for a page: a popup, or a strip at the edge of the desktop.
#include "base/text/columns.hpp"
#include "screen/canvas/big_digits.hpp"
#include "screen/canvas/characters.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/pages/pages.hpp"
#include "work/timer_text.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

/// The phase and what stands beside it, in the first row.
void writeHeadline(Flow& flow, Canvas& canvas, const Frame& frame)
{
    const Place place{flow.rest().row, flow.rest().column};
    const std::size_t columns = flow.rest().columns;
    const std::size_t title =
        canvas.write(place, frame.title, {.accent = frame.accent, .bold = true}, columns);
    if (title + 1 < columns) {
        canvas.write({place.row, place.column + title + 1}, frame.caption, {.dim = true},
                     columns - title - 1);
    }
    flow.skip(1);
}

/// As many hints as fit whole into one row.
void writeKeys(Canvas& canvas, const Area& row, const Frame& frame)
{
    std::size_t column = row.column;
    for (const KeyHint& hint : frame.keys) {
        const std::size_t gap = column > row.column ? 2 : 0;
        const std::size_t width = shownColumns(hint.key) + 1 + shownColumns(hint.label);
        if (column + gap + width > row.column + row.columns) {
            return;
        }
        column += gap;
        column += canvas.write({row.row, column}, hint.key, {.accent = frame.accent, .bold = true}) + 1;
        column += canvas.write({row.row, column}, hint.label, {.dim = true});
    }
}

/// The time and its end, and the bar; large digits where rows are left besides those below.
void writeTime(Flow& flow, Canvas& canvas, const work::SituationView& view, const base::SeenFrom& here,
               std::size_t below)
{
    const work::TimerView& timer = *view.timer;
    const std::string end = work::endText(timer, here);
    const std::string time = work::timeText(timer, here);
    const auto accent = timer.isPaused ? QuillmereDesign::Accent::neutral : view.accent;
    const Place place{flow.rest().row, flow.rest().column};
    if (end.empty()) {
        flow.line(time, {.bold = true});
    } else {
        const std::size_t rows = flow.rowsLeft() - std::min(flow.rowsLeft(), below + 1);
        const BigDigits digits(time, {.rows = rows, .columns = flow.rest().columns});
        digits.draw(canvas, place, timer.isPaused ? DigitStyle::hollow : DigitStyle::full,
                    {.accent = accent, .bold = digits.rows() == 1});
        const std::size_t taken = digits.columns() + 2;
        const bool fits = taken + shownColumns(end) <= flow.rest().columns;
        const std::string beside = fits ? end : timer.isPaused ? "paused" : "";
        if (taken + shownColumns(beside) <= flow.rest().columns) {
            canvas.write({place.row + digits.rows() - 1, place.column + taken}, beside, {.dim = true});
        }
        flow.skip(digits.rows());
    }
    drawShare(canvas, {flow.rest().row, place.column}, flow.rest().columns, timer.usedShare,
              {.accent = accent});
    flow.skip(1);
}

}  // namespace

void drawSmallWork(Canvas& canvas, const Frame& frame, const workspace::Situation& situation,
                   base::Hours hours)
{
    const work::SituationView view = work::SituationView::of(situation);
    const Area all = canvas.area();
    Flow flow(canvas, {all.row, all.column, all.rows - 1, all.columns});
    writeHeadline(flow, canvas, frame);
    const bool isTold = !frame.message.empty();
    const std::string& line = isTold ? frame.message : view.intendedOutcome;
    const std::size_t below = isTold ? base::linesWithin(line, all.columns).size() : 1;
    constexpr std::size_t timeAndBar = 2;
    if (view.timer && below + timeAndBar <= flow.rowsLeft()) {
        writeTime(flow, canvas, view, {situation.now, hours}, below);
    }
    flow.paragraph(line, {.bold = isTold}, 0, std::max<std::size_t>(flow.rowsLeft(), 1));
    writeKeys(canvas, {all.rows - 1, 0, 1, all.columns}, frame);
}

void drawSmallNotice(Canvas& canvas, const Frame& frame, std::string_view sentence)
{
    Flow flow(canvas, canvas.area());
    writeHeadline(flow, canvas, frame);
    flow.paragraph(sentence);
}

}  // namespace quillmere::screen
