// A picture in memory, to be shown by a terminal.
#pragma once

#include <quillmere/records/completion_result.hpp>
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

/// A cell, counted from 0 at the top left.
struct Place {
    std::size_t row = 0;
    std::size_t column = 0;

    friend bool operator==(const Place&, const Place&) = default;
};

struct Area {
    std::size_t row;
    std::size_t column;
    std::size_t rows;
    std::size_t columns;
};

/// The style of a text.
struct Look {
    std::optional<QuillmereDesign::Accent> accent = {};
    std::optional<CompletionResult> completion = {};  ///< its colour stands before that of the accent
    bool bold = false;
    bool dim = false;   ///< secondary text, in the neutral colour
    bool edge = false;  ///< a line that parts, quieter than any text

    friend bool operator==(const Look&, const Look&) = default;
};

/// A character with its combining characters.
struct Cell {
    std::string text = " ";
    std::size_t columns = 1;  ///< 2 for a wide character, 0 for the second cell that it covers
    Look look = {};

    friend bool operator==(const Cell&, const Cell&) = default;
};

/// The characters that the terminal can show.
enum class Charset { unicode, ascii };

/// A grid of cells. Sanitizes the texts written to it, so texts of persons and agents need no preparation,
/// and replaces characters that the terminal cannot show.
class Canvas {
public:
    static constexpr std::size_t toTheEdge = std::numeric_limits<std::size_t>::max();

    explicit Canvas(Size size, Charset charset = Charset::unicode);

    Size size() const { return size_; }
    Charset charset() const { return charset_; }
    Area area() const { return {0, 0, size_.rows, size_.columns}; }

    /// Writes a text in one row, cut to `most` columns and at the edge. Returns the number of columns
    /// written.
    std::size_t write(Place place, std::string_view text, Look look = {}, std::size_t most = toTheEdge);

    /// Fills an area with the rows of `from` that begin at `firstRow`, and takes over a cursor in them.
    void copy(const Canvas& from, std::size_t firstRow, const Area& area);

    const Cell& cell(Place place) const { return cells_[place.row * size_.columns + place.column]; }

    /// The terminal's cursor; absent: hidden.
    const std::optional<Place>& cursor() const { return cursor_; }
    void setCursor(Place place) { cursor_ = place; }

    /// A row as text, without the spaces at its end.
    std::string rowText(std::size_t row) const;
    /// All rows, each with a line break.
    std::string text() const;

private:
    void put(std::string_view character, std::size_t width, Look look, Place place);

    Size size_;
    Charset charset_;
    std::vector<Cell> cells_;
    std::optional<Place> cursor_;
};

}  // namespace quillmere::screen
