// Records to JSON text (RFC 8259, UTF-8).
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/records/base/bytes.hpp>

namespace quillmere {

enum class JsonLayout {
    pretty,   ///< a member a line, two spaces a level, " : " between key and value
    compact,  ///< one line, no white space
};

/// Writes a record as one JSON object, with its keys in snake_case, in ascending byte order. Instants
/// are ISO 8601 text in UTC with whole seconds (RFC 3339), their fraction dropped toward the past;
/// identifiers are upper-case text; doubles take the shortest text that reads back to the same bits.
/// Slashes are not escaped, no line break stands at the end, and the text is valid UTF-8 always:
/// ill-formed bytes of a text in memory become U+FFFD.
class JsonEncoder {
public:
    explicit JsonEncoder(JsonLayout layout) noexcept : layout_(layout) {}

    /// For every record and every enumeration of this library that is stored in a file. Throws EncodingError
    /// for an instant or a duration without a JSON form, and `std::bad_alloc`.
    template <class Value>
    Bytes encode(const Value& value) const;

    /// The same text, to be handed to a sink without ever being in memory as a whole. The value is checked
    /// here: EncodingError is thrown now or never. It must outlive the source, and stay as it is.
    template <class Value>
    ByteSource source(const Value& value) const;
    template <class Value>
    ByteSource source(const Value&&) const = delete;

private:
    JsonLayout layout_;
};

}  // namespace quillmere
