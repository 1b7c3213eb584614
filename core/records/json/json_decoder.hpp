// JSON text (RFC 8259, UTF-8) to records.
#pragma once

#include <quillmere/records/base/bytes.hpp>

namespace quillmere {

/// Reads a record from one JSON object. The keys of the text are converted from snake_case to camelCase and
/// then compared, so "currentBlock" is accepted like "current_block". When two keys convert to the same one,
/// the last wins. Unknown keys are ignored. The whole text must be well-formed, values of unknown keys
/// included, and nested at most 1,024 deep. An integer may be any number that is exactly whole and fits 64
/// bits; an instant may have "Z" or a numeric offset, but whole seconds only.
class JsonDecoder {
public:
    /// `Value` is a record with a table (see `HasFields`) or an enumeration in such a record. Throws
    /// DecodingError, which names the key, the expected and the found value, or `std::bad_alloc`.
    template <class Value>
    Value decode(const Bytes& text) const;
};

}  // namespace quillmere
