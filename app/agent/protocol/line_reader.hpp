// Bytes to lines.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere::agent::protocol {

/// Cuts what comes in pieces of any size into lines, and gives them one at a time. Keeps no more than one
/// piece and one line of at most `longest` bytes: the rest of a longer one is let go as it comes.
class LineReader {
public:
    struct Line {
        std::string text;        ///< without its end; never blank
        bool isTooLong = false;  ///< said once for each, as soon as it is; then there is no text
    };

    explicit LineReader(std::size_t longest) : longest_(longest) {}

    /// Whether the piece before has been read to its end, so that another can be taken.
    bool isAtEnd() const { return begin_ >= piece_.size(); }

    /// Takes the next piece.
    void take(std::string piece);

    /// The next line; absent when the piece has no further end of one.
    std::optional<Line> next();

private:
    std::optional<Line> add(std::string_view bytes);
    std::optional<Line> end();

    std::size_t longest_;
    std::string piece_;
    std::size_t begin_ = 0;  ///< of what has not been read of the piece
    std::string kept_;       ///< of the line that has not ended
    bool isSkipping_ = false;
};

}  // namespace quillmere::agent::protocol
