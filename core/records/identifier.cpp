#include <quillmere/records/identifier.hpp>

#include <sys/random.h>

#include <bit>
#include <cerrno>
#include <system_error>

namespace quillmere {
namespace {

/// The digits of the text form, without the hyphens.
using Digits = std::array<char, 32>;

/// A vector register with the 16 bytes of an identifier, or with half of its 32 digits. A file can hold
/// thousands of identifiers: the vector operations below convert all digits at once, without a branch for
/// each digit.
using Lanes = std::uint8_t __attribute__((vector_size(16)));

constexpr std::uint8_t lettersAfterDigits = 'A' - '9' - 1;

/// Converts values below 16 to upper-case hexadecimal digits.
Lanes digitsOf(Lanes values) { return values + '0' + ((Lanes)(values > 9) & lettersAfterDigits); }

/// Converts hexadecimal digits, in either case, to their values. Sets the bytes of `bad` for characters that
/// are not digits.
Lanes valuesOf(Lanes digits, Lanes& bad)
{
    const Lanes decimal = digits - '0';
    const Lanes letter = (digits | 0x20) - 'a';
    const Lanes isDecimal = (Lanes)(decimal < 10);
    const Lanes isLetter = (Lanes)(letter < 6);
    bad |= ~(isDecimal | isLetter);
    return (decimal & isDecimal) | ((letter + 10) & isLetter);
}

/// Writes the digits in groups of 8-4-4-4-12, with hyphens between them.
void spread(const Digits& digits, char* text)
{
    std::memcpy(text, &digits[0], 8);
    std::memcpy(text + 9, &digits[8], 4);
    std::memcpy(text + 14, &digits[12], 4);
    std::memcpy(text + 19, &digits[16], 4);
    std::memcpy(text + 24, &digits[20], 12);
    text[8] = text[13] = text[18] = text[23] = '-';
}

/// Reads the digits of the groups; ignores the characters between the groups.
Digits gather(const char* text)
{
    Digits digits;
    std::memcpy(&digits[0], text, 8);
    std::memcpy(&digits[8], text + 9, 4);
    std::memcpy(&digits[12], text + 14, 4);
    std::memcpy(&digits[16], text + 19, 4);
    std::memcpy(&digits[20], text + 24, 12);
    return digits;
}

}  // namespace

Identifier Identifier::random()
{
    Octets bytes{};
    // Not std::random_device: its constructor executes cpuid, which is slow on virtual machines.
    if (::getentropy(bytes.data(), bytes.size()) == -1) {
        throw std::system_error(errno, std::generic_category(), "getentropy");
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
    if (text[8] != '-' || text[13] != '-' || text[18] != '-' || text[23] != '-') {
        return std::nullopt;
    }
    const Digits digits = gather(text.data());
    Lanes front;
    Lanes back;
    std::memcpy(&front, &digits[0], sizeof front);
    std::memcpy(&back, &digits[sizeof front], sizeof back);
    Lanes bad{};
    front = valuesOf(front, bad);
    back = valuesOf(back, bad);
    if (std::bit_cast<Octets>(bad) != Octets{}) {
        return std::nullopt;
    }
    const Lanes high =
        __builtin_shufflevector(front, back, 0, 2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
    const Lanes low =
        __builtin_shufflevector(front, back, 1, 3, 5, 7, 9, 11, 13, 15, 17, 19, 21, 23, 25, 27, 29, 31);
    return Identifier(std::bit_cast<Octets>(high << 4 | low));
}

void Identifier::writeText(char* text) const noexcept
{
    const Lanes values = std::bit_cast<Lanes>(bytes_);
    const Lanes high = digitsOf(values >> 4);
    const Lanes low = digitsOf(values & 0x0F);
    const Lanes front =
        __builtin_shufflevector(high, low, 0, 16, 1, 17, 2, 18, 3, 19, 4, 20, 5, 21, 6, 22, 7, 23);
    const Lanes back =
        __builtin_shufflevector(high, low, 8, 24, 9, 25, 10, 26, 11, 27, 12, 28, 13, 29, 14, 30, 15, 31);
    Digits digits;
    std::memcpy(&digits[0], &front, sizeof front);
    std::memcpy(&digits[sizeof front], &back, sizeof back);
    spread(digits, text);
}

std::string Identifier::text() const
{
    std::string text(textLength, '-');
    writeText(text.data());
    return text;
}

}  // namespace quillmere
