// Writes JSON text straight into a buffer: how each kind of value is spelled, and nothing of records.
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
/// The shortest text that reads back to the same bits. `value` must be finite.
char* putNumber(char* cursor, double value);
char* putIdentifier(char* cursor, const Identifier& identifier);
/// `instant` must satisfy hasDateText.
char* putInstant(char* cursor, Instant instant);

/// The buffer of a text. Whoever writes holds the cursor, the place of the next byte, since it stays in
/// a register that way. A throw leaves a text that is unfinished and of no use.
class Writer {
public:
    /// For a text that stays in memory; starts with room for `expectedSize` bytes.
    explicit Writer(std::size_t expectedSize);

    /// For a text that goes to a sink, which is called when a piece is full. The buffer is used again and
    /// again, so it stays in the processor's cache. The sink must outlive the writer.
    explicit Writer(const ByteSink& sink);

    char* start() noexcept { return begin_; }

    /// Makes room for `count` more bytes at the cursor; returns the cursor, since the buffer may move.
    char* ensure(char* cursor, std::size_t count)
    {
        return static_cast<std::size_t>(end_ - cursor) < count ? grow(cursor, count) : cursor;
    }

    /// Writes a quoted, escaped string, for which it makes room itself; ill-formed UTF-8 becomes U+FFFD.
    char* putString(char* cursor, std::string_view text);

    /// What was written, or nothing where it has gone to the sink. The writer is empty afterwards.
    Bytes finish(char* cursor);

private:
    char* grow(char* cursor, std::size_t count);
    /// Gives the sink, if there is one, what has been written; returns where to go on.
    char* handOver(char* cursor);
    std::size_t sizeUpTo(const char* cursor) const noexcept;

    const ByteSink* sink_ = nullptr;
    Bytes bytes_;
    char* begin_;
    char* end_;
};

}  // namespace quillmere::json
