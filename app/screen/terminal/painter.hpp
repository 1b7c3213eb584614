// Turns pictures into the bytes that show them on a terminal.
#pragma once

#include "base/text/colours.hpp"
#include "screen/canvas/canvas.hpp"

#include <functional>
#include <optional>
#include <string>
#include <utility>

namespace quillmere::screen {

/// What a terminal understands, from its description (terminfo(5)).
struct TerminalAbilities {
    std::function<std::string(Place)> moveTo;
    std::string clear;
    std::string plain;  ///< ends every look
    std::string bold;
    std::string dim;
    base::ColourDepth colours;
    bool scrollsAtTheEnd = false;  ///< a character in the last cell moves the picture up
};

/// Curses knows no true colours without changing the palette of the whole terminal, so pictures are drawn
/// without it.
class Painter {
public:
    explicit Painter(TerminalAbilities abilities) : abilities_(std::move(abilities)) {}

    void setBackground(base::Background background);

    /// The bytes that turn the picture shown last into this one.
    std::string paint(const Canvas& next);

    /// The terminal shows something else now: the next picture is painted whole.
    void forget() { shown_.reset(); }

private:
    std::string sequenceFor(const Look& look) const;
    /// Paints a cell, after moving to it unless the terminal's cursor is there.
    void paintCell(std::string& bytes, const Cell& cell, Place place);

    TerminalAbilities abilities_;
    base::Background background_ = base::Background::dark;
    std::optional<Canvas> shown_;
    std::optional<Place> cursor_;  ///< while painting; absent: not known
    Look look_;                    ///< while painting
};

}  // namespace quillmere::screen
