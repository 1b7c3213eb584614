#include <quillmere/records/json/utf8.hpp>

#include <array>

namespace quillmere::json {
namespace {

struct Range {
    unsigned char low;
    unsigned char high;

    bool contains(unsigned char byte) const { return byte >= low && byte <= high; }
};

/// A range of first bytes, the second bytes that may follow them, and the length of the character.
struct FirstByte {
    Range first;
    Range second;
    std::size_t length;
};

// The ranges leave out overlong forms, surrogates and code points above U+10FFFF.
// clang-format off
constexpr FirstByte firstBytes[] = {
    {{0xC2, 0xDF}, {0x80, 0xBF}, 2},
    {{0xE0, 0xE0}, {0xA0, 0xBF}, 3},
    {{0xE1, 0xEC}, {0x80, 0xBF}, 3},
    {{0xED, 0xED}, {0x80, 0x9F}, 3},
    {{0xEE, 0xEF}, {0x80, 0xBF}, 3},
    {{0xF0, 0xF0}, {0x90, 0xBF}, 4},
    {{0xF1, 0xF3}, {0x80, 0xBF}, 4},
    {{0xF4, 0xF4}, {0x80, 0x8F}, 4},
};
// clang-format on

constexpr Range continuation{0x80, 0xBF};

/// The row of each first byte. The row of a byte that does not begin a longer character has the length 1.
constexpr auto rowByFirstByte = [] {
    std::array<FirstByte, 256> rows{};
    rows.fill({{}, {}, 1});
    for (const FirstByte& row : firstBytes) {
        for (std::size_t byte = row.first.low; byte <= row.first.high; ++byte) {
            rows[byte] = row;
        }
    }
    return rows;
}();

}  // namespace

void appendUtf8(std::string& text, std::uint32_t codePoint)
{
    const auto append = [&](std::uint32_t byte) { text.push_back(static_cast<char>(byte)); };
    const auto appendContinuation = [&](int shift) { append(0x80 | (codePoint >> shift & 0x3F)); };
    if (codePoint < 0x80) {
        append(codePoint);
    } else if (codePoint < 0x800) {
        append(0xC0 | codePoint >> 6);
        appendContinuation(0);
    } else if (codePoint < 0x10000) {
        append(0xE0 | codePoint >> 12);
        appendContinuation(6);
        appendContinuation(0);
    } else {
        append(0xF0 | codePoint >> 18);
        appendContinuation(12);
        appendContinuation(6);
        appendContinuation(0);
    }
}

Utf8Sequence frontSequence(std::string_view text) noexcept
{
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const FirstByte& row = rowByFirstByte[byteAt(0)];
    for (std::size_t index = 1; index < row.length; ++index) {
        const Range& accepted = index == 1 ? row.second : continuation;
        if (index >= text.size() || !accepted.contains(byteAt(index))) {
            return {index, false};
        }
    }
    return {row.length, row.length > 1 || byteAt(0) < 0x80};
}

}  // namespace quillmere::json
