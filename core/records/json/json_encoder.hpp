// Records to JSON text (RFC 8259, UTF-8).
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/records/base/bytes.hpp>

namespace quillmere {

enum class JsonLayout {
    pretty,   ///< one member on each line, two spaces for each level, " : " between key and value
    compact,  ///< one line without white space
};

/// Writes a record as one JSON object with keys in snake_case, sorted by bytes. An instant is ISO 8601 text
/// in UTC with whole seconds (RFC 3339), rounded toward the past. An identifier is upper-case text. A double
/// has the shortest text that reads back to the same bits. Slashes are not escaped, and no line break follows
/// the object. The output is always valid UTF-8: ill-formed bytes of a text become U+FFFD.
class JsonEncoder {
public:
    explicit JsonEncoder(JsonLayout layout) noexcept : layout_(layout) {}

    /// `Value` is a record with a table (see `HasFields`) or an enumeration in such a record. Throws
    /// EncodingError for an instant or a duration without a JSON form, or `std::bad_alloc`.
    template <class Value>
    Bytes encode(const Value& value) const;

    /// A source that writes the same text to a sink piece by piece. The value is checked in this call, so the
    /// source itself throws no EncodingError. The value must outlive the source and must not change.
    template <class Value>
    ByteSource source(const Value& value) const;
    template <class Value>
    ByteSource source(const Value&&) const = delete;

private:
    JsonLayout layout_;
};

}  // namespace quillmere
