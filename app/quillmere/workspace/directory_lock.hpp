// One writer at a time.
#pragma once

#include "system/open_file.hpp"

#include <chrono>
#include <filesystem>

namespace quillmere::app {

/// Holds the lock of a directory: flock(2) on the directory itself, so that no file is left behind and
/// the lock goes with its holder, however that ends. Readers need none.
class DirectoryLock {
public:
    static constexpr std::chrono::milliseconds usualWait{5'000};
    static constexpr std::chrono::milliseconds pauseBetweenTries{10};

    /// Waits for the lock; throws ProgramError (`lockBusy`) when it has waited long enough, and
    /// `std::system_error` when the directory cannot be locked at all.
    explicit DirectoryLock(const std::filesystem::path& directory,
                           std::chrono::milliseconds longestWait = usualWait);

private:
    OpenFile directory_;
};

}  // namespace quillmere::app
