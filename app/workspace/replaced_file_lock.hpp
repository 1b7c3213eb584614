// A lock on a file that its holder replaces.
#pragma once

#include "base/system/descriptor.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <vector>

namespace quillmere::workspace {

/// Holds an open-file-description lock (fcntl(2), F_OFD_SETLK) on the file that a path names, for file
/// systems that offer no flock(2). These locks need a descriptor for writing, so a directory cannot have one.
///
/// A save replaces the locked file. The new file is locked before the rename (`follow`), so at every moment
/// the path names a file that the holder has locked. A program that waited for the old file finds that the
/// path names another one, and waits for that.
class ReplacedFileLock {
public:
    /// Waits for the lock up to `patience`; then throws Refusal (`busy`). Calls `makeFile` when there is no
    /// file; another program may make it first. Throws Refusal (`fileError`) where the system offers no such
    /// locks, and `std::system_error` when the file cannot be opened for reading and writing, ELOOP for a
    /// link.
    ReplacedFileLock(std::filesystem::path file, const std::function<void()>& makeFile,
                     std::chrono::milliseconds patience);

    /// Locks the file that will be renamed to the path of the lock, too. Throws `std::system_error`.
    void follow(const std::filesystem::path& replacement);

private:
    bool tryLock(const std::function<void()>& makeFile);
    /// Whether the path still names the open file.
    bool isCurrent(const base::Descriptor& file) const;
    [[noreturn]] void refuse() const;

    std::filesystem::path file_;
    /// All of them until the end: when the rename fails, the path still names an earlier file.
    std::vector<base::Descriptor> locked_;
};

}  // namespace quillmere::workspace
