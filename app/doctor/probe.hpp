// Tries the system calls that a save needs, on the directory itself.
#pragma once

#include <filesystem>
#include <optional>

namespace quillmere::doctor {

/// The result of one system call: 0 for success, otherwise its errno. Absent when it was not tried, because a
/// call before it failed.
using CallResult = std::optional<int>;

struct Probe {
    CallResult write = {};          ///< creating a file and writing to it
    CallResult syncFile = {};       ///< fsync(2) of the file
    CallResult replace = {};        ///< rename(2) over another file
    CallResult hardLink = {};       ///< link(2) to where versions are kept
    CallResult syncDirectory = {};  ///< opening the directory and fsync(2)
    CallResult lock = {};           ///< flock(2) on the directory; EWOULDBLOCK when another program holds it
    /// An open-file-description lock (fcntl(2), F_OFD_SETLK) on a file. Tried only when flock(2) is not
    /// offered.
    CallResult fileLock = {};
};

/// Makes hidden temporary files beside the state file, and removes them. `versions` is the directory of
/// versions; where it does not exist, the link is made there too. The lock is released at once.
Probe probe(const std::filesystem::path& stateFile, const std::filesystem::path& versions);

/// Whether flock(2) with this result is not offered by the file system (rather than refused).
bool isLockNotOffered(int error);

/// Takes flock(2) on a directory without waiting, and releases it. EWOULDBLOCK when another process holds it.
int tryLock(const std::filesystem::path& directory);

}  // namespace quillmere::doctor
