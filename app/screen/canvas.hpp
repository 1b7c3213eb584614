// What is to be seen, before it is on a terminal.
#pragma once

#include <quillmere/widget/design.hpp>

#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillmere::screen {

struct Size {
    std::size_t rows;
    std::size_t columns;

    friend bool operator==(const Size&, const Size&) = default;
};

/// Counted from 0 at the top left.
struct Place {
    std::size_t row;
    std::size_t column;

    friend bool operator==(const Place&, const Place&) = default;
};

struct Area {
    std::size_t row;
    std::size_t column;
    std::size_t rows;
    std::size_t columns;
};

/// How a text is shown.
struct Look {
    std::optional<QuillmereDesign::Accent> accent = {};
    bool bold = false;
    bool dim = false;

    friend bool operator==(const Look&, const Look&) = default;
};

/// One place: a character with all that combines with it.
struct Cell {
    std::string text = " ";
    std::size_t columns = 1;  ///< 2 for a wide character, 0 for the place that it covers besides its own
    Look look = {};
};

/// What the terminal can show.
enum class Charset { unicode, ascii };

/// A grid of cells. Texts of persons and agents may be written as they are: they are sanitized here, and what
/// the terminal cannot show is replaced.
class Canvas {
public:
    static constexpr std::size_t toTheEdge = std::numeric_limits<std::size_t>::max();

    explicit Canvas(Size size, Charset charset = Charset::unicode);

    Size size() const { return size_; }
    Charset charset() const { return charset_; }
    Area area() const { return {0, 0, size_.rows, size_.columns}; }

    /// Writes a text in one row, cut to `most` columns; what lies outside is left out. Returns the columns
    /// taken.
    std::size_t write(Place place, std::string_view text, Look look = {}, std::size_t most = toTheEdge);

    /// Copies the rows of `from`, beginning with `firstRow`, into an area, with the cursor if it is there.
    void copy(const Canvas& from, std::size_t firstRow, const Area& area);

    const Cell& cell(Place place) const { return cells_[place.row * size_.columns + place.column]; }

    /// Where the terminal's cursor is to be; absent: nowhere.
    const std::optional<Place>& cursor() const { return cursor_; }
    void setCursor(Place place) { cursor_ = place; }

    /// A row as text, without the spaces at its end.
    std::string rowText(std::size_t row) const;
    /// All rows, a line each.
    std::string text() const;

private:
    void put(std::string_view character, std::size_t width, Look look, Place place);

    Size size_;
    Charset charset_;
    std::vector<Cell> cells_;
    std::optional<Place> cursor_;
};

}  // namespace quillmere::screen
