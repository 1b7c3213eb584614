#include "agent/protocol/line_reader.hpp"

#include <algorithm>
#include <utility>

namespace quillmere::agent::protocol {

void LineReader::take(std::string piece)
{
    piece_ = std::move(piece);
    begin_ = 0;
}

std::optional<LineReader::Line> LineReader::next()
{
    std::optional<Line> line;
    while (!line && !isAtEnd()) {
        const bool endsHere = piece_[begin_] == '\n';
        const std::size_t end = std::min(piece_.find('\n', begin_), piece_.size());
        line = endsHere ? this->end() : add(std::string_view(piece_).substr(begin_, end - begin_));
        begin_ = endsHere ? begin_ + 1 : end;
    }
    return line;
}

std::optional<LineReader::Line> LineReader::add(std::string_view bytes)
{
    // One byte more may be the carriage return at the end of the line.
    if (!isSkipping_ && bytes.size() > longest_ + 1 - kept_.size()) {
        std::string().swap(kept_);
        isSkipping_ = true;
        return Line{.text = {}, .isTooLong = true};
    }
    if (!isSkipping_) {
        kept_ += bytes;
    }
    return std::nullopt;
}

std::optional<LineReader::Line> LineReader::end()
{
    isSkipping_ = false;
    // The memory of a long line goes with it.
    Line line{.text = std::exchange(kept_, {})};
    if (line.text.ends_with('\r')) {
        line.text.pop_back();
    }
    if (line.text.size() > longest_) {
        return Line{.text = {}, .isTooLong = true};
    }
    const bool isBlank = line.text.find_first_not_of(" \t\r") == std::string::npos;
    return isBlank ? std::nullopt : std::optional(std::move(line));
}

}  // namespace quillmere::agent::protocol
