#include "screen/pages/recall_text.hpp"

#include "base/text/columns.hpp"
#include "screen/canvas/flow.hpp"

#include <algorithm>

namespace quillmere::screen {
namespace {

constexpr std::size_t columnsOfPassageMark = 2;
constexpr std::size_t indentOfFacts = 2;
constexpr std::size_t gapAfterLabel = 2;
constexpr std::size_t mostColumns = 88;  ///< longer lines are hard to read

/// The first columns of the headings, the labels and the texts, and the width of the texts.
struct RecallGrid {
    std::size_t heading;
    std::size_t label;
    std::size_t text;
    std::size_t width;
};

RecallGrid recallGridFor(const work::Recall& recall, std::size_t columns, Marks marks)
{
    const std::size_t labels = work::labelColumns(recall);
    const std::size_t heading = marks == Marks::possible ? columnsOfPassageMark : 0;
    const std::size_t label = heading + indentOfFacts;
    const std::size_t text = label + (labels > 0 ? labels + gapAfterLabel : 0);
    const std::size_t whole = std::min(columns, mostColumns);
    return {heading, label, text, whole > text ? whole - text : 1};
}

std::size_t rowsOf(const work::Recall& recall, const RecallGrid& grid)
{
    std::size_t rows = 0;
    for (const work::Passage& passage : recall) {
        rows += (rows > 0 ? 1 : 0) + (passage.heading.empty() ? 0 : 1);
        for (const work::Fact& fact : passage.facts) {
            rows += base::linesWithin(fact.text, grid.width).size();
        }
    }
    return rows;
}

}  // namespace

RecallText textOf(const work::Recall& recall, std::size_t columns, Charset charset, Look heading, Marks marks,
                  std::optional<std::size_t> marked)
{
    const RecallGrid grid = recallGridFor(recall, columns, marks);
    RecallText text{Canvas({.rows = rowsOf(recall, grid), .columns = columns}, charset), {}};
    Canvas& canvas = text.canvas;
    Flow flow(canvas, {0, 0, canvas.size().rows, std::min(columns, grid.text + grid.width)});
    for (std::size_t index = 0; index < recall.size(); ++index) {
        flow.skip(index > 0 ? 1 : 0);
        const std::size_t row = flow.rest().row;
        text.rowsOfHeadings.push_back(row);
        if (index == marked) {
            canvas.write({row, 0}, "▸", heading);
        }
        if (!recall[index].heading.empty()) {
            flow.line(recall[index].heading, heading, grid.heading);
        }
        for (const work::Fact& fact : recall[index].facts) {
            canvas.write({flow.rest().row, grid.label}, fact.label,
                         {.completion = fact.completion, .dim = !fact.completion});
            flow.paragraph(fact.text, {}, grid.text);
        }
    }
    return text;
}

}  // namespace quillmere::screen
