// Watching a directory for changed files.
#pragma once

#include "base/system/descriptor.hpp"
#include "base/system/directory_fingerprint.hpp"

#include <filesystem>
#include <string>

namespace quillmere::base {

/// Watches one directory (inotify(7)), which need not exist and may be deleted and made again. Until the
/// directory exists and is readable, watches its nearest ancestor that does.
///
/// Where the system offers no more watches, compares the entries of the directory instead, at each call of
/// `takeChanges`.
class DirectoryWatch {
public:
    /// Throws `std::system_error` when watching fails for another reason than a limit of the system.
    explicit DirectoryWatch(std::filesystem::path directory);

    /// For `waitFor`: readable when something has changed. -1 while there is trouble.
    int descriptor() const noexcept { return events_.get(); }

    /// Whether a file in the directory may have changed since the last call. Never waits. Throws
    /// `std::system_error` when the changes cannot be read.
    bool takeChanges();

    /// Why the system offers no watch, as a sentence for the user. Usually empty. With trouble, nothing wakes
    /// the owner: `takeChanges` is to be called once a second.
    const std::string& trouble() const noexcept { return trouble_; }

private:
    bool takeEvents();
    void watchNearest();
    /// False when a missing directory was made meanwhile, so that a nearer one can be watched.
    bool tryToWatchNearest();
    /// Goes on without a watch if errno says that the system offers no more; otherwise throws.
    void goOnWithoutWatch(const std::filesystem::path& path);

    std::filesystem::path directory_;
    Descriptor events_;
    int watch_ = -1;
    std::string trouble_;
    DirectoryFingerprint fingerprint_;  ///< of the last call, while there is trouble
};

}  // namespace quillmere::base
