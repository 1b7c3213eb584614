// Compressed files in the Zstandard format (RFC 8878).
#pragma once

#include <quillmere/records/base/bytes.hpp>

#include <string_view>

namespace quillmere::base {

/// One frame with the size of the content and a checksum, at the fastest usual level. Throws
/// `std::bad_alloc`.
Bytes compressed(std::string_view content);

/// The content of one such frame. Throws Refusal (`unusableData`) when the bytes are anything else or their
/// checksum is wrong, and `std::bad_alloc` when the content does not fit in memory.
Bytes decompressed(std::string_view frame);

}  // namespace quillmere::base
