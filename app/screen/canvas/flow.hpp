// Writes lines into an area from top to bottom.
#pragma once

#include "screen/canvas/canvas.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

/// Draws arrows in the last column of an area when there are more rows above or below.
void drawMoreArrows(Canvas& canvas, const Area& area, bool above, bool below);

/// Lines below the bottom of the area are left out.
class Flow {
public:
    Flow(Canvas& canvas, const Area& area) : canvas_(canvas), area_(area) {}

    std::size_t rowsLeft() const { return area_.rows; }
    /// The part of the area below the last line.
    const Area& rest() const { return area_; }

    /// Writes one line, cut at the edge.
    void line(std::string_view text, Look look = {}, std::size_t indent = 0);
    /// Writes one centred line.
    void centred(std::string_view text, Look look = {});
    /// Writes a wrapped text of at most `most` lines.
    void paragraph(std::string_view text, Look look = {}, std::size_t indent = 0,
                   std::size_t most = Canvas::toTheEdge);
    /// Writes a name with a text beside it; nothing when the text is empty.
    void field(std::string_view name, std::string_view text, std::size_t most = Canvas::toTheEdge);
    void skip(std::size_t rows);
    /// Skips rows; the height is in layout points.
    void space(double points);

private:
    Canvas& canvas_;
    Area area_;
};

}  // namespace quillmere::screen
