#include "screen/canvas/flow.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "screen/canvas/layout.hpp"

namespace quillmere::screen {
namespace {

constexpr std::size_t nameColumns = 14;

}  // namespace

void drawMoreArrows(Canvas& canvas, const Area& area, bool above, bool below)
{
    const std::size_t edge = area.column + area.columns - 1;
    if (above) {
        canvas.write({area.row, edge}, "↑", {.dim = true});
    }
    if (below) {
        canvas.write({area.row + area.rows - 1, edge}, "↓", {.dim = true});
    }
}

void Flow::skip(std::size_t rows)
{
    const std::size_t taken = std::min(rows, area_.rows);
    area_.row += taken;
    area_.rows -= taken;
}

void Flow::space(double points) { skip(rowsOf(points)); }

void Flow::line(std::string_view text, Look look, std::size_t indent)
{
    if (area_.rows > 0 && indent < area_.columns) {
        canvas_.write({area_.row, area_.column + indent}, text, look, area_.columns - indent);
    }
    skip(1);
}

void Flow::centred(std::string_view text, Look look)
{
    const std::size_t taken = std::min(base::columnsOf(base::sanitized(text)), area_.columns);
    line(text, look, (area_.columns - taken) / 2);
}

void Flow::paragraph(std::string_view text, Look look, std::size_t indent, std::size_t most)
{
    const std::vector<std::string> lines =
        base::linesWithin(text, area_.columns - std::min(indent, area_.columns - 1));
    for (std::size_t index = 0; index < lines.size() && index < most; ++index) {
        const bool isCut = index + 1 == most && index + 1 < lines.size();
        line(isCut ? lines[index] + "…" : lines[index], look, indent);
    }
}

void Flow::field(std::string_view name, std::string_view text, std::size_t most)
{
    if (text.empty() || area_.rows == 0) {
        return;
    }
    canvas_.write({area_.row, area_.column}, name, {.dim = true}, nameColumns - 1);
    paragraph(text, {}, nameColumns, most);
}

}  // namespace quillmere::screen
