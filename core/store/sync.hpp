// Makes changes survive a power cut.
#pragma once

#include <filesystem>

namespace quillmere {

/// Writes the content of a file to the disk (fsync(2)); throws when that fails.
void syncFile(const std::filesystem::path& file);

/// Writes the names in a directory to the disk, after files were created, moved or removed there. An empty
/// path is the current directory. Returns false where the system does not offer this: the directory may not
/// be opened (EACCES), or its file system cannot sync directories (EINVAL, ENOTSUP). Every other failure, EIO
/// and ENOSPC for example, is thrown.
bool syncDirectory(const std::filesystem::path& directory);

}  // namespace quillmere
