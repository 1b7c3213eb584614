// JSON text (RFC 8259, UTF-8) to records.
#pragma once

#include <quillmere/records/base/bytes.hpp>

namespace quillmere {

/// Reads a record from one JSON object. The keys of the text are converted from snake_case to
/// camelCase and then matched, so "currentBlock" serves as well as "current_block"; when two keys
/// convert to one, the last wins; keys that no record names are ignored. The whole text must be
/// well-formed, ignored keys included, nested at most 1,024 deep. Integers accept any number that is
/// exactly whole and fits 64 bits; instants accept "Z" and numeric offsets, whole seconds only.
class JsonDecoder {
public:
    /// For every record and every enumeration of this library that is stored in a file. Throws DecodingError,
    /// which names the key, what was expected and what was found; and `std::bad_alloc`.
    template <class Value>
    Value decode(const Bytes& text) const;
};

}  // namespace quillmere
