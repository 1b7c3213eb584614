#include <quillmere/records/json/utf8.hpp>

namespace quillmere::json {
namespace {

struct Range {
    unsigned char low;
    unsigned char high;

    bool contains(unsigned char byte) const { return byte >= low && byte <= high; }
};

/// Which second bytes may follow which first ones, and how many more come after.
struct FirstByte {
    Range first;
    Range second;
    std::size_t length;
};

// The gaps keep out overlong forms, surrogates and what lies beyond U+10FFFF.
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

}  // namespace

Utf8Sequence frontSequence(std::string_view text) noexcept
{
    const auto byteAt = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    if (byteAt(0) < 0x80) {
        return {1, true};
    }
    for (const FirstByte& row : firstBytes) {
        if (!row.first.contains(byteAt(0))) {
            continue;
        }
        for (std::size_t index = 1; index < row.length; ++index) {
            const Range& accepted = index == 1 ? row.second : continuation;
            if (index >= text.size() || !accepted.contains(byteAt(index))) {
                return {index, false};
            }
        }
        return {row.length, true};
    }
    return {1, false};
}

}  // namespace quillmere::json
