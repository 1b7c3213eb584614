// The one protocol by which files are written.
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/store/replace_item.hpp>

#include <filesystem>

namespace quillmere {

/// Writes `content` to a new hidden file beside `destination`, ".NAME.UUID.tmp", and has `replaceItem`
/// move it over. Whatever happens, the temporary file is removed if it is still there. A failure
/// leaves the destination as it was, unless `replaceItem` fails after its move.
void writeAtomically(const ByteSource& content, const std::filesystem::path& destination,
                     const ReplaceItem& replaceItem);

}  // namespace quillmere
