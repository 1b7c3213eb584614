// Writing down an area, line after line.
#pragma once

#include "screen/canvas.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

/// A text in lines of at most `most` columns, its own line breaks kept, harmless to a terminal.
std::vector<std::string> linesOf(std::string_view text, std::size_t most);

/// Shows in the last column of an area whether there is more above and below what it shows.
void drawMoreArrows(Canvas& canvas, const Area& area, bool above, bool below);

/// Writes from the top of an area to its bottom; what finds no room is left out.
class Flow {
public:
    Flow(Canvas& canvas, const Area& area) : canvas_(canvas), area_(area) {}

    std::size_t rowsLeft() const { return area_.rows; }
    /// What has not been written to.
    const Area& rest() const { return area_; }

    /// One line, cut at the edge.
    void line(std::string_view text, Look look = {}, std::size_t indent = 0);
    /// One line in the middle.
    void centred(std::string_view text, Look look = {});
    /// As many lines as the text takes, but no more than `most`.
    void paragraph(std::string_view text, Look look = {}, std::size_t indent = 0,
                   std::size_t most = Canvas::toTheEdge);
    /// A name, and beside it what has it; nothing when that is empty.
    void field(std::string_view name, std::string_view text, std::size_t most = Canvas::toTheEdge);
    void skip(std::size_t rows);
    /// Empty rows, by layout points.
    void space(double points);

private:
    Canvas& canvas_;
    Area area_;
};

}  // namespace quillmere::screen
