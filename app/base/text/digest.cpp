#include "base/text/digest.hpp"

#include <array>
#include <charconv>
#include <cstdint>

namespace quillmere::base {

std::string digest(std::string_view text)
{
    // FNV-1a with 64 bits; std::hash may differ from run to run.
    std::uint64_t hash = 0xCBF2'9CE4'8422'2325;
    for (const char byte : text) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100'0000'01B3;
    }
    constexpr std::size_t digitCount = 16;
    std::array<char, digitCount> digits{};
    const auto end = std::to_chars(digits.begin(), digits.end(), hash, 16).ptr;
    const std::string text16(digits.begin(), end);
    return std::string(digitCount - text16.size(), '0') + text16;
}

}  // namespace quillmere::base
