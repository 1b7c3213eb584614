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

/// 128 bits, compared and copied as a plain value. There is no nil default: an identifier is drawn,
/// read from text, or built from its bytes.
class Identifier {
public:
    using Bytes = std::array<std::uint8_t, 16>;

    /// Characters in the text form.
    static constexpr std::size_t textLength = 36;

    explicit constexpr Identifier(const Bytes& bytes) noexcept : bytes_(bytes) {}

    /// A new random identifier (version 4). Throws `std::system_error` when the system has no source of
    /// randomness (getentropy(3)).
    static Identifier random();

    /// Reads the canonical text, groups of 8-4-4-4-12 hexadecimal digits in either case, of any
    /// version; absent for any other text.
    static std::optional<Identifier> fromText(std::string_view text) noexcept;

    /// The canonical text in upper case: "9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10".
    std::string text() const;

    /// The same text into `textLength` characters that the caller owns; no terminator.
    void writeText(char* text) const noexcept;

    constexpr const Bytes& bytes() const noexcept { return bytes_; }

    friend constexpr bool operator==(const Identifier&, const Identifier&) = default;
    friend constexpr auto operator<=>(const Identifier&, const Identifier&) = default;

private:
    Bytes bytes_;
};

}  // namespace quillmere

template <>
struct std::hash<quillmere::Identifier> {
    std::size_t operator()(const quillmere::Identifier& identifier) const noexcept
    {
        // The bits are random already; folding the two halves keeps them so.
        std::uint64_t halves[2];
        std::memcpy(halves, identifier.bytes().data(), sizeof halves);
        return static_cast<std::size_t>(halves[0] ^ halves[1]);
    }
};
