// Changes of a directory without a watch.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmere::base {

/// The entries of a directory as seen from outside: name, inode, size and times of change; and the directory
/// itself. Two fingerprints differ when a file was made, replaced, changed, moved or deleted in between. A
/// missing or unreadable directory has a fingerprint too.
using DirectoryFingerprint = std::vector<std::string>;

DirectoryFingerprint fingerprintOf(const std::filesystem::path& directory);

}  // namespace quillmere::base
