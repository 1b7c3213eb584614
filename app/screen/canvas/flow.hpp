// Writes lines into an area from top to bottom.
#pragma once

#include "screen/canvas/canvas.hpp"

#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

/// Draws arrows in the last column of an area when there are more rows above or below.
void drawMoreArrows(Canvas& canvas, const Area& area, bool above, bool below);

/// Draws a bar that is filled to a share of 0 to 1, by half columns.
void drawShare(Canvas& canvas, Place place, std::size_t columns, double share, Look filled);

/// A line of text is at most this wide, however wide the window: longer lines are hard to read.
inline constexpr std::size_t mostTextColumns = 72;

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
    /// Writes a wrapped text of at most `most` lines; an indent counts as part of the width of a line.
    void paragraph(std::string_view text, Look look = {}, std::size_t indent = 0,
                   std::size_t most = Canvas::toTheEdge);
    /// How a name stands before its text.
    struct Naming {
        std::size_t columns = 14;  ///< of the name and the gap after it
        Look look = {.dim = true};
        std::size_t most = Canvas::toTheEdge;  ///< lines of the text
    };
    /// Writes a name with a text beside it; nothing when the text is empty.
    void field(std::string_view name, std::string_view text, const Naming& naming);
    void skip(std::size_t rows);
    /// Skips rows; the height is in layout points.
    void space(double points);

private:
    Canvas& canvas_;
    Area area_;
};

}  // namespace quillmere::screen
