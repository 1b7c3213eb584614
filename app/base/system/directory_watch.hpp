// Watching a directory for changed files.
#pragma once

#include "base/system/descriptor.hpp"

#include <filesystem>

namespace quillmere::base {

/// Watches one directory (inotify(7)), which need not exist and may be deleted and made again. Until the
/// directory exists and is readable, watches its nearest ancestor that does.
class DirectoryWatch {
public:
    /// Throws `std::system_error` when the system allows no more watches.
    explicit DirectoryWatch(std::filesystem::path directory);

    /// For `waitFor`: readable when something has changed.
    int descriptor() const noexcept { return events_.get(); }

    /// Whether a file in the directory may have changed since the last call. Never waits. Throws
    /// `std::system_error` when the changes cannot be read.
    bool takeChanges();

private:
    void watchNearest();
    /// False when a missing directory was made meanwhile, so that a nearer one can be watched.
    bool tryToWatchNearest();

    std::filesystem::path directory_;
    Descriptor events_;
    int watch_ = -1;
};

}  // namespace quillmere::base
