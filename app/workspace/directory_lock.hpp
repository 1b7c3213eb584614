// The lock that lets one program at a time write in a directory.
#pragma once

#include "base/system/descriptor.hpp"

#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>

namespace quillmere::workspace {

/// Holds flock(2) on the directory itself: no lock file is left behind, and the system releases the lock when
/// its holder ends, even by a crash. Readers need no lock.
class DirectoryLock {
public:
    /// How long a command waits for other programs.
    static constexpr std::chrono::milliseconds usualPatience{5'000};
    /// flock(2) cannot wait for a limited time, so it is tried again after each pause.
    static constexpr std::chrono::milliseconds pauseBetweenTries{10};

    /// Waits for the lock up to `patience`; then throws Refusal (`busy`). Throws `std::system_error` when the
    /// directory cannot be opened or locked at all.
    explicit DirectoryLock(const std::filesystem::path& directory,
                           std::chrono::milliseconds patience = usualPatience);

    /// Takes the lock without waiting; absent when another program holds it. Throws `std::system_error` when
    /// the directory cannot be opened or locked at all.
    static std::optional<DirectoryLock> tryTake(const std::filesystem::path& directory);

private:
    explicit DirectoryLock(base::Descriptor directory) : directory_(std::move(directory)) {}

    base::Descriptor directory_;
};

}  // namespace quillmere::workspace
