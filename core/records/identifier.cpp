#include <quillmere/records/identifier.hpp>

#include <random>

namespace quillmere {
namespace {

constexpr std::string_view upperCaseDigits = "0123456789ABCDEF";

/// The two digits of each byte in a row.
constexpr auto upperCasePairs = [] {
    std::array<char, 512> pairs{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        pairs[2 * byte] = upperCaseDigits[byte >> 4];
        pairs[2 * byte + 1] = upperCaseDigits[byte & 0x0F];
    }
    return pairs;
}();

/// The hyphens of 8-4-4-4-12 stand before the bytes with these indexes.
constexpr bool hyphenBefore(std::size_t byteIndex)
{
    return byteIndex == 4 || byteIndex == 6 || byteIndex == 8 || byteIndex == 10;
}

constexpr std::uint8_t notADigit = 0xFF;

/// Digit values by character, so that reading needs one look-up a digit.
constexpr auto digitValues = [] {
    std::array<std::uint8_t, 256> values{};
    values.fill(notADigit);
    for (std::uint8_t value = 0; value < 16; ++value) {
        const auto upper = static_cast<unsigned char>(upperCaseDigits[value]);
        values[upper] = value;
        if (upper >= 'A') {
            values[upper - 'A' + 'a'] = value;
        }
    }
    return values;
}();

std::uint8_t digitValue(char character)
{
    return digitValues[static_cast<unsigned char>(character)];
}

}  // namespace

Identifier Identifier::random()
{
    static_assert(sizeof(std::random_device::result_type) == 4);
    Bytes bytes{};
    std::random_device device;
    for (std::size_t offset = 0; offset < bytes.size(); offset += 4) {
        const std::random_device::result_type word = device();
        std::memcpy(bytes.data() + offset, &word, sizeof word);
    }
    // RFC 9562, section 5.4: version 4 in the high half of byte 6, variant 10 in the top bits of byte 8.
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return Identifier(bytes);
}

std::optional<Identifier> Identifier::fromText(std::string_view text) noexcept
{
    if (text.size() != textLength) {
        return std::nullopt;
    }
    Bytes bytes{};
    std::size_t position = 0;
    for (std::size_t index = 0; index < bytes.size(); ++index) {
        if (hyphenBefore(index) && text[position++] != '-') {
            return std::nullopt;
        }
        const std::uint8_t high = digitValue(text[position++]);
        const std::uint8_t low = digitValue(text[position++]);
        if (high == notADigit || low == notADigit) {
            return std::nullopt;
        }
        bytes[index] = static_cast<std::uint8_t>(high << 4 | low);
    }
    return Identifier(bytes);
}

void Identifier::writeText(char* text) const noexcept
{
    for (std::size_t index = 0; index < bytes_.size(); ++index) {
        if (hyphenBefore(index)) {
            *text++ = '-';
        }
        std::memcpy(text, &upperCasePairs[2 * bytes_[index]], 2);
        text += 2;
    }
}

std::string Identifier::text() const
{
    std::string text(textLength, '-');
    writeText(text.data());
    return text;
}

}  // namespace quillmere
