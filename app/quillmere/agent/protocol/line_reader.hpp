// Bytes to lines.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quillmere::app::protocol {

/// Cuts what comes in pieces of any size into lines. Never keeps more than one line, nor more of it than
/// `longest` bytes: the rest of a longer one is let go as it comes.
class LineReader {
public:
    struct Sink {
        std::function<void(std::string_view)> line;  ///< without its end; never a blank one
        std::function<void()> tooLong;               ///< once for each, as soon as it is
    };

    LineReader(std::size_t longest, Sink sink);

    void take(std::string_view bytes);

    /// Nothing follows: what stands without a line end is a line too.
    void finish();

private:
    void keep(std::string_view bytes);
    void endLine();

    std::size_t longest_;
    Sink sink_;
    std::string kept_;
    bool isSkipping_ = false;
};

}  // namespace quillmere::app::protocol
