// Writes JSON text straight into a growing buffer: how each kind of value is spelled, and nothing of
// records.
#pragma once

#include <quillmere/records/bytes.hpp>
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/fixed_text.hpp>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillmere::json {

/// The most bytes that one of the tokens below takes, with room to spare.
inline constexpr std::size_t longestToken = 48;

// Tokens. Each is written at `cursor`, where there is room for `longestToken` bytes; the result is the
// place behind it.

template <std::size_t length>
char* putText(char* cursor, const FixedText<length>& text)
{
    std::memcpy(cursor, text.characters.data(), length);
    return cursor + length;
}

char* putBoolean(char* cursor, bool value);
char* putInteger(char* cursor, std::int64_t value);
/// The shortest text that reads back to the same bits. Throws EncodingError when not finite.
char* putNumber(char* cursor, double value);
char* putIdentifier(char* cursor, const Identifier& identifier);
/// Throws EncodingError when not finite or outside the years 0000 to 9999.
char* putInstant(char* cursor, Instant instant);

/// The buffer of a text. Whoever writes holds the cursor, the place of the next byte, since it stays in
/// a register that way. A throw leaves a text that is unfinished and of no use.
class Writer {
public:
    /// Starts with room for `expectedSize` bytes.
    explicit Writer(std::size_t expectedSize);

    char* start() noexcept { return begin_; }

    /// Makes room for `count` more bytes at the cursor; returns the cursor, since the buffer may move.
    char* ensure(char* cursor, std::size_t count)
    {
        return static_cast<std::size_t>(end_ - cursor) < count ? grow(cursor, count) : cursor;
    }

    /// Where a cursor stands, whatever becomes of the buffer.
    std::size_t offsetOf(const char* cursor) const noexcept
    {
        return static_cast<std::size_t>(cursor - begin_);
    }

    /// Replaces one character written earlier.
    void replaceAt(std::size_t offset, char character) noexcept { begin_[offset] = character; }

    /// Writes a quoted, escaped string, for which it makes room itself; ill-formed UTF-8 becomes U+FFFD.
    char* putString(char* cursor, std::string_view text);

    /// What was written. The writer is empty afterwards.
    Bytes finish(const char* cursor);

private:
    char* grow(char* cursor, std::size_t count);

    Bytes bytes_;
    char* begin_;
    char* end_;
};

}  // namespace quillmere::json
