// Tells when files change, without looking again and again.
#pragma once

#include "base/system/descriptor.hpp"

#include <filesystem>

namespace quillmere::base {

/// Watches one directory (inotify(7)), which need not exist yet and may go and come back: until it is
/// there and may be read, what is watched is the nearest directory above it of which that is true.
class DirectoryWatch {
public:
    /// Throws `std::system_error` when the system can watch no more.
    explicit DirectoryWatch(std::filesystem::path directory);

    /// For poll(2): readable when something has happened.
    int descriptor() const noexcept { return events_.get(); }

    /// Takes what has happened since the last call; whether a file in the directory may have changed. Never
    /// waits.
    bool takeChanges();

private:
    void watchNearest();
    /// False when what was missing has been made meanwhile.
    bool tryToWatchNearest();

    std::filesystem::path directory_;
    Descriptor events_;
    int watch_ = -1;
};

}  // namespace quillmere::base
