// One leader among the processes that use a directory.
#pragma once

#include "workspace/directory_lock.hpp"

#include <filesystem>
#include <optional>

namespace quillmere::workspace {

/// Of all processes that could give notices, the holder of this lock does. The system releases it when its
/// holder ends, however that happens. Where locking is impossible every process is a leader: a duplicate
/// notice is better than none.
class LeaderLock {
public:
    /// `directory` is created by the first `tryAcquire`. Empty: locking is impossible.
    explicit LeaderLock(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// Acquires the lock unless another process holds it; returns whether it is held now. Never waits.
    bool tryAcquire();

    void release();

    bool isHeld() const { return isHeld_; }

private:
    std::filesystem::path directory_;
    std::optional<DirectoryLock> lock_;
    bool isHeld_ = false;
};

/// Where notices are recorded, the directory that their leader locks; empty when there is no state directory.
std::filesystem::path noticesDirectory(const std::filesystem::path& stateDirectory);

/// Whether some process holds the lock of `directory`, or locking is impossible. Creates nothing. Takes the
/// lock for an instant; a leader that is refused meanwhile tries again.
bool hasLeader(const std::filesystem::path& directory);

}  // namespace quillmere::workspace
