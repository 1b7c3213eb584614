// Splits bytes into lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::agent::protocol {

/// Splits pieces of any size into lines. Holds no more than one piece and one line of at most `longest`
/// bytes; the rest of a longer line is dropped as it arrives.
class LineReader {
public:
    struct Line {
        std::string text;        ///< without the line end; never blank
        bool isTooLong = false;  ///< reported once for each such line, as soon as it is known; no text then
    };

    explicit LineReader(std::size_t longest) : longest_(longest) {}

    /// Whether the piece is used up, so that `take` may be called.
    bool isAtEnd() const { return begin_ >= piece_.size(); }

    /// Takes the next piece.
    void take(std::string piece);

    /// The next line; absent when no further line ends in the piece.
    std::optional<Line> next();

private:
    std::optional<Line> add(std::string_view bytes);
    std::optional<Line> end();

    std::size_t longest_;
    std::string piece_;
    std::size_t begin_ = 0;  ///< of the unread rest of the piece
    std::string kept_;       ///< the line that has not ended yet
    bool isSkipping_ = false;
};

}  // namespace quillmere::agent::protocol
