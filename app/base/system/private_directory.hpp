// Directories that only their owner can open.
#pragma once

#include <filesystem>

namespace quillmere::base {

/// Makes a directory and its missing parents with mode 0700 (XDG Base Directory), whatever the umask is.
/// Existing directories keep their modes. Throws `std::system_error`.
void createOwnersDirectory(const std::filesystem::path& directory);

}  // namespace quillmere::base
