// A text that may be higher than its area.
#pragma once

#include "screen/canvas/canvas.hpp"
#include "screen/keys/key.hpp"

#include <cstddef>

namespace quillmere::screen {

/// Holds which part of the text is in view. The text is drawn at full height, one column narrower than the
/// area, whose last column has arrows where there is more.
class ScrolledText {
public:
    static std::size_t columnsIn(const Area& area) { return area.columns - 1; }

    /// Takes a key that scrolls a text of `rows` rows: the arrows by a row, PgUp and PgDn by a page, Home and
    /// End. Returns false for any other key.
    bool take(const Key& key, std::size_t rows, const Area& area);

    /// Makes a row the first in view.
    void moveTo(std::size_t row) { first_ = row; }
    void toTop() { first_ = 0; }

    void draw(Canvas& canvas, const Area& area, const Canvas& text) const;

private:
    std::size_t first_ = 0;  ///< in view; may be beyond the end of a text that has become shorter
};

}  // namespace quillmere::screen
