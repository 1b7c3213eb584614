// The frame of every page.
#include "base/text/columns.hpp"
#include "screen/canvas/characters.hpp"
#include "screen/canvas/flow.hpp"
#include "screen/canvas/layout.hpp"
#include "screen/pages/pages.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::size_t mostKeyRows = 3;
constexpr std::size_t mostMessageRows = 4;

/// Splits the hints into rows of at most `most` columns.
std::vector<std::vector<KeyHint>> rowsOfHints(const std::vector<KeyHint>& hints, std::size_t most,
                                              std::size_t gap)
{
    std::vector<std::vector<KeyHint>> rows(1);
    std::size_t taken = 0;
    for (const KeyHint& hint : hints) {
        const std::size_t width = base::columnsOf(hint.key) + 1 + base::columnsOf(hint.label);
        if (taken > 0 && taken + gap + width > most && rows.size() < mostKeyRows) {
            rows.emplace_back();
            taken = 0;
        }
        taken += (taken > 0 ? gap : 0) + width;
        rows.back().push_back(hint);
    }
    return rows;
}

void drawHints(Canvas& canvas, const Area& area, const std::vector<std::vector<KeyHint>>& rows,
               std::size_t gap, Look look)
{
    for (std::size_t row = 0; row < rows.size(); ++row) {
        std::size_t column = area.column;
        for (const KeyHint& hint : rows[row]) {
            column += canvas.write({area.row + row, column}, hint.key, look) + 1;
            column += canvas.write({area.row + row, column}, hint.label, {.dim = true}) + gap;
        }
    }
}

void drawHeadline(Canvas& canvas, const Area& area, const Frame& frame, std::size_t gap)
{
    const Look accented{.accent = frame.accent, .bold = true};
    const std::size_t note = std::min(shownColumns(frame.note), area.columns);
    canvas.write({area.row, area.column + area.columns - note}, frame.note, {}, note);
    const std::size_t title = canvas.write({area.row, area.column}, frame.title, accented);
    const std::size_t taken = title + gap + (note > 0 ? note + gap : 0);
    if (taken < area.columns) {
        canvas.write({area.row, area.column + title + gap}, frame.caption, {}, area.columns - taken);
    }
}

std::string ruleOf(std::size_t length)
{
    std::string rule;
    for (std::size_t column = 0; column < length; ++column) {
        rule += "─";
    }
    return rule;
}

}  // namespace

Area drawFrame(Canvas& canvas, const Frame& frame)
{
    using namespace QuillmereDesign;
    const QuillmereWidgetFamily family = familyFor(canvas.size());
    const bool isCompact = layout(family) == QuillmereWidgetLayout::compact;
    const std::size_t margin = marginFor(canvas.size());
    const std::size_t gap = columnsOf(isCompact ? Spacing::regular : Spacing::loose);
    Area area{0, margin, canvas.size().rows, canvas.size().columns - 2 * margin};
    drawHeadline(canvas, area, frame, columnsOf(Spacing::regular));
    std::size_t top = 1;
    if (!isCompact) {
        canvas.write({top++, margin}, ruleOf(area.columns), {.edge = true});
        top += rowsOf(Spacing::regular);
    }
    const auto hints = rowsOfHints(frame.keys, area.columns, gap);
    const std::size_t firstHint = area.rows - hints.size();
    drawHints(canvas, {firstHint, margin, hints.size(), area.columns}, hints, gap,
              {.accent = frame.accent, .bold = true});
    const std::vector<std::string> message =
        base::linesWithin(frame.message, std::min(area.columns, mostTextColumns));
    const std::size_t firstMessage = firstHint - std::min(message.size(), mostMessageRows);
    Flow(canvas, {firstMessage, margin, firstHint - firstMessage, area.columns})
        .paragraph(frame.message, {.bold = true});
    const std::size_t bottom = firstMessage - (isCompact ? 0 : rowsOf(Spacing::snug));
    return {top, margin, bottom - top, area.columns};
}

void drawTrouble(Canvas& canvas, const Area& area, std::string_view trouble)
{
    Flow flow(canvas, area);
    flow.line("The files cannot be used.", {.bold = true});
    flow.space(QuillmereDesign::Spacing::regular);
    flow.paragraph(trouble);
    flow.space(QuillmereDesign::Spacing::regular);
    flow.paragraph("Nothing is lost. This screen comes back as soon as they can be used.", {.dim = true});
}

}  // namespace quillmere::screen
