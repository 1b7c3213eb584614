// The operation that moves a finished temporary file over another file.
#pragma once

#include <filesystem>
#include <functional>

namespace quillmere {

/// Moves a complete temporary file over the destination. Readers see the old or the new file. Throws
/// `std::system_error` when it fails. `StateStore` has two such operations.
using ReplaceItem =
    std::function<void(const std::filesystem::path& temporaryURL, const std::filesystem::path& destination)>;

}  // namespace quillmere
