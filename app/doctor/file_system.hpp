// The file system of a path.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

namespace quillmere::doctor {

struct FileSystemType {
    std::string name;            ///< "ext4"; in hexadecimal where it is not a usual one
    bool isInMemory = false;     ///< its files are lost when the machine stops
    bool isOverNetwork = false;  ///< several machines may use it, while locks may hold for one only
};

/// Throws `std::system_error`.
FileSystemType fileSystemAt(const std::filesystem::path& path);

struct Room {
    std::uintmax_t bytes;  ///< free for this user
    std::uintmax_t files;  ///< how many more files can be made; the largest number where there is no limit
};

/// Throws `std::system_error`.
Room roomAt(const std::filesystem::path& path);

/// The path, or the nearest directory above it that exists.
std::filesystem::path nearestExisting(std::filesystem::path path);

}  // namespace quillmere::doctor
