// Replaces a file in one step.
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/store/replace_item.hpp>

#include <filesystem>

namespace quillmere {

/// Writes `content` to a new hidden file beside `destination`, ".NAME.UUID.tmp", and lets `replaceItem` move
/// it over the destination. The temporary file is removed in any case if it still exists. After a failure the
/// destination is unchanged, unless `replaceItem` fails after its move.
void writeAtomically(const ByteSource& content, const std::filesystem::path& destination,
                     const ReplaceItem& replaceItem);

}  // namespace quillmere
