// Directories that are nobody else's business.
#pragma once

#include <filesystem>

namespace quillmere::base {

/// Makes a directory and its missing parents, all of them for their owner only (XDG Base Directory), whatever
/// the umask says. Those that are there stay as they are. Throws `std::system_error`.
void createOwnersDirectory(const std::filesystem::path& directory);

}  // namespace quillmere::base
