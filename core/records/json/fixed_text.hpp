// Texts that are concatenated at compile time.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace quillmere::json {

/// `length` characters without a terminator; usable as a template argument.
template <std::size_t length>
struct FixedText {
    std::array<char, length> characters{};

    constexpr FixedText() = default;
    // NOLINTNEXTLINE(google-explicit-constructor): a literal is the natural way to write one.
    constexpr FixedText(const char (&literal)[length + 1])
    {
        std::copy_n(literal, length, characters.begin());
    }

    constexpr std::string_view view() const { return {characters.data(), length}; }
};

template <std::size_t sizeWithTerminator>
FixedText(const char (&)[sizeWithTerminator]) -> FixedText<sizeWithTerminator - 1>;

template <std::size_t left, std::size_t right>
constexpr FixedText<left + right> operator+(const FixedText<left>& first, const FixedText<right>& second)
{
    FixedText<left + right> joined;
    std::copy_n(first.characters.begin(), left, joined.characters.begin());
    std::copy_n(second.characters.begin(), right, joined.characters.begin() + left);
    return joined;
}

/// `count` spaces.
template <std::size_t count>
constexpr FixedText<count> spaces()
{
    FixedText<count> text;
    text.characters.fill(' ');
    return text;
}

}  // namespace quillmere::json
