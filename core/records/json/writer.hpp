// Writes JSON text straight into a growing buffer.
#pragma once

#include <quillmere/records/bytes.hpp>
#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/json/fixed_text.hpp>

#include <cstdint>
#include <cstring>
#include <string_view>

namespace quillmere::json {

/// Knows how each kind of value is spelled, and nothing of records. A throw leaves a text that is
/// unfinished and of no use.
class Writer {
public:
    /// Starts with room for `expectedSize` bytes.
    explicit Writer(std::size_t expectedSize);

    std::size_t position() const noexcept { return static_cast<std::size_t>(cursor_ - begin_); }

    template <std::size_t length>
    void put(const FixedText<length>& text)
    {
        ensure(length);
        std::memcpy(cursor_, text.characters.data(), length);
        cursor_ += length;
    }

    /// Replaces one character written earlier.
    void replaceAt(std::size_t position, char character) noexcept { begin_[position] = character; }

    void boolean(bool value);
    void integer(std::int64_t value);
    /// The shortest text that reads back to the same bits. Throws EncodingError when not finite.
    void number(double value);
    /// A quoted, escaped string; ill-formed UTF-8 becomes U+FFFD.
    void string(std::string_view text);
    void identifier(const Identifier& identifier);
    /// Throws EncodingError when not finite or outside the years 0000 to 9999.
    void instant(Instant instant);

    /// What was written. The writer is empty afterwards.
    Bytes finish();

private:
    /// Makes room for `count` more bytes at the cursor.
    void ensure(std::size_t count)
    {
        if (static_cast<std::size_t>(end_ - cursor_) < count) {
            grow(count);
        }
    }
    void grow(std::size_t count);

    void putUnchecked(std::string_view text)
    {
        std::memcpy(cursor_, text.data(), text.size());
        cursor_ += text.size();
    }

    Bytes bytes_;
    char* begin_;
    char* cursor_;
    char* end_;
};

}  // namespace quillmere::json
