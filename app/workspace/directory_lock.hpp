// One writer at a time.
#pragma once

#include "base/system/descriptor.hpp"

#include <chrono>
#include <filesystem>
#include <optional>
#include <utility>

namespace quillmere::workspace {

/// Holds the lock of a directory: flock(2) on the directory itself, so that no file is left behind and
/// the lock goes with its holder, however that ends. Readers need none.
class DirectoryLock {
public:
    /// How long a command waits for others to be done.
    static constexpr std::chrono::milliseconds usualPatience{5'000};
    /// How often whoever waits looks again; flock(2) can wait, but not for a limited time.
    static constexpr std::chrono::milliseconds pauseBetweenTries{10};

    /// Waits for the lock, but no longer than `patience`; throws Refusal (`busy`) then, and
    /// `std::system_error` when the directory cannot be locked at all.
    explicit DirectoryLock(const std::filesystem::path& directory,
                           std::chrono::milliseconds patience = usualPatience);

    /// Takes the lock without waiting; absent when somebody else holds it. Throws `std::system_error` when
    /// the directory cannot be locked at all.
    static std::optional<DirectoryLock> tryTake(const std::filesystem::path& directory);

private:
    explicit DirectoryLock(base::Descriptor directory) : directory_(std::move(directory)) {}

    base::Descriptor directory_;
};

}  // namespace quillmere::workspace
