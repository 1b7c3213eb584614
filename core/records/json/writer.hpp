// Writes JSON values directly into a buffer. Knows nothing of records.
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/records/base/bytes.hpp>
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/fixed_text.hpp>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillmere::json {

/// No token below is longer than this.
inline constexpr std::size_t longestToken = 48;

// Tokens. Each function writes at `cursor`, where there must be room for `longestToken` bytes, and returns
// the place after the token.

template <std::size_t length>
char* putText(char* cursor, const FixedText<length>& text)
{
    std::memcpy(cursor, text.characters.data(), length);
    return cursor + length;
}

char* putBoolean(char* cursor, bool value);
char* putInteger(char* cursor, std::int64_t value);
/// The shortest text that reads back to the same bits. `value` must be finite.
char* putNumber(char* cursor, double value);
char* putIdentifier(char* cursor, const Identifier& identifier);
/// `instant` must satisfy hasDateText.
char* putInstant(char* cursor, Instant instant);

/// The buffer of a text. The functions that write pass on the cursor, the place of the next byte, so that the
/// compiler keeps it in a register. After an exception the text is incomplete and must not be used.
class Writer {
public:
    /// For a text that stays in memory; starts with room for `expectedSize` bytes.
    explicit Writer(std::size_t expectedSize);

    /// For a text that goes to a sink, which is called with each full piece. The buffer is reused for each
    /// piece, so it stays in the processor's cache. The sink must outlive the writer.
    explicit Writer(const ByteSink& sink);

    char* start() noexcept { return begin_; }

    /// Makes room for `count` more bytes at the cursor. Returns the new cursor, because the buffer may move.
    char* ensure(char* cursor, std::size_t count)
    {
        return static_cast<std::size_t>(end_ - cursor) < count ? grow(cursor, count) : cursor;
    }

    /// Writes a string with quotes and escapes, and makes the room for it. Ill-formed UTF-8 becomes U+FFFD.
    char* putString(char* cursor, std::string_view text);

    /// Returns the written text, or passes the last piece to the sink and returns no bytes. The writer must
    /// not be used afterwards.
    Bytes finish(char* cursor);

private:
    char* grow(char* cursor, std::size_t count);
    /// Passes the written bytes to the sink, if there is one; returns the place of the next byte.
    char* handOver(char* cursor);
    std::size_t sizeUpTo(const char* cursor) const noexcept;

    const ByteSink* sink_ = nullptr;
    Bytes bytes_;
    char* begin_;
    char* end_;
};

}  // namespace quillmere::json
