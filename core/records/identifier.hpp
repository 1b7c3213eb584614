// The identity of a record: a universally unique identifier (RFC 9562).
#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillmere {

/// 128 bits, compared and copied as a plain value. There is no default value: an identifier is random, read
/// from a text, or made from its bytes.
class Identifier {
public:
    using Octets = std::array<std::uint8_t, 16>;

    /// Characters in the text form.
    static constexpr std::size_t textLength = 36;

    explicit constexpr Identifier(const Octets& bytes) noexcept : bytes_(bytes) {}

    /// A new random identifier (version 4). Throws `std::system_error` when getentropy(3) fails.
    static Identifier random();

    /// Reads the canonical text of an identifier of any version: groups of 8-4-4-4-12 hexadecimal digits in
    /// either case. Absent for any other text.
    static std::optional<Identifier> fromText(std::string_view text) noexcept;

    /// The canonical text in upper case: "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10".
    std::string text() const;

    /// Writes the same text to `textLength` characters at `text`, without a terminator.
    void writeText(char* text) const noexcept;

    constexpr const Octets& bytes() const noexcept { return bytes_; }

    friend constexpr bool operator==(const Identifier&, const Identifier&) = default;
    friend constexpr auto operator<=>(const Identifier&, const Identifier&) = default;

private:
    Octets bytes_;
};

}  // namespace quillmere

template <>
struct std::hash<quillmere::Identifier> {
    std::size_t operator()(const quillmere::Identifier& identifier) const noexcept
    {
        // The bits are random already, so no mixing is needed.
        std::uint64_t halves[2];
        std::memcpy(halves, identifier.bytes().data(), sizeof halves);
        return static_cast<std::size_t>(halves[0] ^ halves[1]);
    }
};
