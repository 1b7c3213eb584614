// Who tells.
#pragma once

#include "workspace/directory_lock.hpp"

#include <filesystem>
#include <optional>

namespace quillmere::workspace {

/// Of all programs that could give notices, one does: the holder of the lock of the directory where their
/// records are, and the lock goes with its holder, however that ends.
class LeaderLock {
public:
    /// `directory` is made when it is needed. Empty: everybody has the turn.
    explicit LeaderLock(std::filesystem::path directory) : directory_(std::move(directory)) {}

    /// Takes the turn unless somebody else has it; whether it is had now. So it is where nothing can be
    /// locked: told twice is better than not told. Never waits.
    bool take();

    void giveBack();

    bool isHad() const { return isHad_; }

private:
    std::filesystem::path directory_;
    std::optional<DirectoryLock> lock_;
    bool isHad_ = false;
};

}  // namespace quillmere::workspace
