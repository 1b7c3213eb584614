#include "base/text/columns.hpp"

#include "base/text/sanitize.hpp"

#include <unigbrk.h>
#include <unilbrk.h>
#include <uniwidth.h>

#include <algorithm>
#include <utility>

namespace quillmere::base {
namespace {

constexpr std::string_view ellipsis = "\u2026";
// libunistring asks for the encoding: the width of some characters is ambiguous without it.
constexpr const char* encoding = "UTF-8";

const uint8_t* bytes(std::string_view text) { return reinterpret_cast<const uint8_t*>(text.data()); }

/// The first grapheme cluster: a character with its combining marks.
std::string_view frontCharacter(std::string_view text)
{
    const uint8_t* const begin = bytes(text);
    const uint8_t* const next = u8_grapheme_next(begin, begin + text.size());
    return text.substr(0, static_cast<std::size_t>(next - begin));
}

/// Limits of a text.
struct Room {
    std::size_t columns;
    std::size_t bytes;
};

constexpr std::size_t noBound = std::string_view::npos;

/// More than any emoji needs; stacks of marks that reach into the lines above need more.
constexpr std::size_t mostBytesOfACharacter = 64;

/// The longest beginning that fits.
std::string_view frontThatFits(std::string_view text, Room room)
{
    std::size_t taken = 0;
    std::size_t length = 0;
    while (length < text.size()) {
        const std::string_view character = frontCharacter(text.substr(length));
        taken += columnsOf(character);
        if (taken > room.columns || length + character.size() > room.bytes ||
            character.size() > mostBytesOfACharacter) {
            break;
        }
        length += character.size();
    }
    return text.substr(0, length);
}

std::string cutTo(std::string_view text, Room room)
{
    if (frontThatFits(text, room) == text) {
        return std::string(text);
    }
    if (room.columns == 0 || room.bytes < ellipsis.size()) {
        return {};
    }
    const Room left{.columns = room.columns - 1, .bytes = room.bytes - ellipsis.size()};
    return std::string(frontThatFits(text, left)).append(ellipsis);
}

std::string_view withoutTrailingSpaces(std::string_view text)
{
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

/// Adds a line. If it is too long, it is a single word: breaks it into several lines.
void addLine(std::vector<std::string>& lines, std::string_view line, std::size_t most)
{
    std::string_view rest = withoutTrailingSpaces(line);
    while (columnsOf(rest) > most) {
        // At least one character, even one wider than the line.
        const std::size_t length = std::max(frontThatFits(rest, {.columns = most, .bytes = noBound}).size(),
                                            frontCharacter(rest).size());
        if (length == rest.size()) {
            break;
        }
        lines.emplace_back(rest.substr(0, length));
        rest.remove_prefix(length);
    }
    lines.emplace_back(rest);
}

}  // namespace

std::size_t columnsOf(std::string_view text)
{
    return static_cast<std::size_t>(std::max(u8_width(bytes(text), text.size(), encoding), 0));
}

std::string cutToColumns(std::string_view text, std::size_t most)
{
    return cutTo(text, {.columns = most, .bytes = most * mostBytesPerColumn});
}

std::string cutToBytes(std::string_view text, std::size_t most)
{
    return cutTo(text, {.columns = noBound, .bytes = most});
}

std::vector<std::string> wrapped(std::string_view text, std::size_t most)
{
    std::vector<char> breaks(text.size());
    u8_possible_linebreaks(bytes(text), text.size(), encoding, breaks.data());
    std::vector<std::string> lines;
    std::size_t begin = 0;
    std::size_t lastBreak = 0;
    for (std::size_t index = 0; index <= text.size(); ++index) {
        const bool isEnd = index == text.size() || breaks[index] == UC_BREAK_MANDATORY;
        if (!isEnd && breaks[index] != UC_BREAK_POSSIBLE) {
            continue;
        }
        const bool fits = columnsOf(withoutTrailingSpaces(text.substr(begin, index - begin))) <= most;
        if (!fits && lastBreak > begin) {
            addLine(lines, text.substr(begin, lastBreak - begin), most);
            begin = lastBreak;
        }
        lastBreak = index;
        if (isEnd) {
            addLine(lines, text.substr(begin, index - begin), most);
            begin = index + 1;
            lastBreak = begin;
        }
    }
    return lines;
}

std::vector<std::string> linesWithin(std::string_view text, std::size_t most)
{
    std::vector<std::string> lines;
    while (true) {
        const std::size_t end = text.find('\n');
        for (std::string& line : wrapped(sanitized(text.substr(0, end)), most)) {
            lines.push_back(std::move(line));
        }
        if (end == std::string_view::npos) {
            return lines;
        }
        text.remove_prefix(end + 1);
    }
}

}  // namespace quillmere::base
