// The one protocol by which files are written.
#pragma once

#include <quillmere/store/replace_item.hpp>

#include <filesystem>
#include <string_view>

namespace quillmere {

/// Writes `bytes` to a new hidden file beside `destination`, ".NAME.UUID.tmp", and has `replaceItem`
/// move it over. Whatever happens, the temporary file is removed if it is still there. A failure
/// leaves the destination as it was, unless `replaceItem` fails after its move.
void writeAtomically(std::string_view bytes, const std::filesystem::path& destination,
                     const ReplaceItem& replaceItem);

}  // namespace quillmere
