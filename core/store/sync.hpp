// What makes a change outlast a power cut.
#pragma once

#include <filesystem>

namespace quillmere {

/// Writes what a file holds to the disk (fsync(2)); throws when that fails.
void syncFile(const std::filesystem::path& file);

/// Writes the names in a directory to the disk: what was made, moved or removed there; an empty path is the
/// current directory.
void syncDirectory(const std::filesystem::path& directory);

}  // namespace quillmere
