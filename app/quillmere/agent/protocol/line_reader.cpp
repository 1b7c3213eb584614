#include "agent/protocol/line_reader.hpp"

#include <utility>

namespace quillmere::app::protocol {

LineReader::LineReader(std::size_t longest, Sink sink) : longest_(longest), sink_(std::move(sink)) {}

void LineReader::take(std::string_view bytes)
{
    for (std::size_t end = 0; (end = bytes.find('\n')) != std::string_view::npos;) {
        keep(bytes.substr(0, end));
        endLine();
        bytes.remove_prefix(end + 1);
    }
    keep(bytes);
}

void LineReader::finish() { endLine(); }

void LineReader::keep(std::string_view bytes)
{
    if (isSkipping_) {
        return;
    }
    if (bytes.size() > longest_ - kept_.size()) {
        std::string().swap(kept_);
        isSkipping_ = true;
        sink_.tooLong();
        return;
    }
    kept_ += bytes;
}

void LineReader::endLine()
{
    // What a long line has taken is given back with it.
    const std::string line = std::exchange(kept_, {});
    isSkipping_ = false;
    std::string_view text = line;
    if (text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    if (text.find_first_not_of(" \t\r") != std::string_view::npos) {
        sink_.line(text);
    }
}

}  // namespace quillmere::app::protocol
