#include "screen/canvas/flow.hpp"

#include "base/text/columns.hpp"
#include "base/text/sanitize.hpp"
#include "screen/canvas/layout.hpp"

#include <algorithm>
#include <cmath>

namespace quillmere::screen {
namespace {

std::string repeated(std::string_view sign, std::size_t count)
{
    std::string text;
    for (std::size_t index = 0; index < count; ++index) {
        text += sign;
    }
    return text;
}

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

void drawShare(Canvas& canvas, Place place, std::size_t columns, double share, Look filled)
{
    const auto halves =
        static_cast<std::size_t>(std::lround(std::clamp(share, 0.0, 1.0) * 2 * static_cast<double>(columns)));
    const std::string full = repeated("█", halves / 2) + (halves % 2 == 1 ? "▌" : "");
    const std::size_t taken = canvas.write(place, full, filled);
    canvas.write({place.row, place.column + taken}, repeated("─", columns - taken), {.dim = true});
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
    const std::size_t columns = std::min(area_.columns, std::max(mostTextColumns, indent + 1));
    const std::vector<std::string> lines = base::linesWithin(text, columns - std::min(indent, columns - 1));
    for (std::size_t index = 0; index < lines.size() && index < most; ++index) {
        const bool isCut = index + 1 == most && index + 1 < lines.size();
        line(isCut ? lines[index] + "…" : lines[index], look, indent);
    }
}

void Flow::field(std::string_view name, std::string_view text, const Naming& naming)
{
    if (text.empty() || area_.rows == 0) {
        return;
    }
    canvas_.write({area_.row, area_.column}, name, naming.look, naming.columns - 1);
    paragraph(text, {}, naming.columns, naming.most);
}

}  // namespace quillmere::screen
