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

/// A hint and where it stands.
struct PlacedHint {
    const KeyHint& hint;
    Place place;
    std::size_t columns;
};

/// The hints in rows of at most `most` columns, the first row being 0.
std::vector<PlacedHint> placed(const std::vector<KeyHint>& hints, std::size_t most, std::size_t gap)
{
    std::vector<PlacedHint> all;
    Place next{0, 0};
    for (const KeyHint& hint : hints) {
        const std::size_t width = base::columnsOf(hint.key) + 1 + base::columnsOf(hint.label);
        if (next.column > 0 && next.column + width > most && next.row + 1 < mostKeyRows) {
            next = {next.row + 1, 0};
        }
        all.push_back({hint, next, width});
        next.column += width + gap;
    }
    return all;
}

/// The hints at the bottom of a window.
std::vector<PlacedHint> hintsAtTheBottom(const std::vector<KeyHint>& hints, Size window)
{
    const std::size_t margin = marginFor(window);
    const bool isCompact = layout(familyFor(window)) == QuillmereWidgetLayout::compact;
    const std::size_t gap =
        columnsOf(isCompact ? QuillmereDesign::Spacing::regular : QuillmereDesign::Spacing::loose);
    std::vector<PlacedHint> all = placed(hints, window.columns - 2 * margin, gap);
    const std::size_t rows = all.empty() ? 1 : all.back().place.row + 1;
    for (PlacedHint& hint : all) {
        hint.place = {window.rows - rows + hint.place.row, margin + hint.place.column};
    }
    return all;
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
    Area area{0, margin, canvas.size().rows, canvas.size().columns - 2 * margin};
    drawHeadline(canvas, area, frame, columnsOf(Spacing::regular));
    std::size_t top = 1;
    if (!isCompact) {
        canvas.write({top++, margin}, ruleOf(area.columns), {.edge = true});
        top += rowsOf(Spacing::regular);
    }
    const std::vector<PlacedHint> hints = hintsAtTheBottom(frame.keys, canvas.size());
    for (const auto& [hint, place, width] : hints) {
        const std::size_t key = canvas.write(place, hint.key, {.accent = frame.accent, .bold = true});
        canvas.write({place.row, place.column + key + 1}, hint.label, {.dim = true});
    }
    const std::size_t firstHint = hints.empty() ? area.rows - 1 : hints.front().place.row;
    const std::vector<std::string> message =
        base::linesWithin(frame.message, std::min(area.columns, mostTextColumns));
    const std::size_t gap = isCompact || message.empty() ? 0 : rowsOf(Spacing::regular);
    const std::size_t rowsOfMessage = std::min(message.size(), mostMessageRows);
    const std::size_t firstMessage = firstHint - gap - rowsOfMessage;
    Flow(canvas, {firstMessage, margin, rowsOfMessage, area.columns})
        .paragraph(frame.message, {.bold = true});
    const std::size_t bottom = firstMessage - (isCompact ? 0 : rowsOf(Spacing::snug));
    return {top, margin, bottom - top, area.columns};
}

const KeyHint* hintAt(const Frame& frame, Size window, Place place)
{
    for (const auto& [hint, begin, width] : hintsAtTheBottom(frame.keys, window)) {
        if (place.row == begin.row && place.column >= begin.column && place.column < begin.column + width) {
            return &hint;
        }
    }
    return nullptr;
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
