// One writer at a time.
#pragma once

#include "system/open_file.hpp"

#include <filesystem>

namespace quillmere::app {

/// Holds the lock of a directory: flock(2) on the directory itself, so that no file is left behind and
/// the lock goes with its holder, however that ends. Readers need none.
class DirectoryLock {
public:
    /// Waits for the lock, at most five seconds; throws ProgramError (`lockBusy`) then, and
    /// `std::system_error` when the directory cannot be locked at all.
    explicit DirectoryLock(const std::filesystem::path& directory);

private:
    OpenFile directory_;
};

}  // namespace quillmere::app
