// The lock under which a run changes the state.
#pragma once

#include "workspace/directory_lock.hpp"
#include "workspace/replaced_file_lock.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <variant>

namespace quillmere::workspace {

/// Lets one program at a time change the state: flock(2) on the directory, or, where its file system offers
/// none, a lock on the state file itself. No lock file is made, and the system releases the lock when its
/// holder ends. Readers need no lock.
class StateLock {
public:
    /// Waits for the lock up to `patience`; then throws Refusal (`busy`). `makeFirst` writes a first state
    /// file unless there is one by then (link(2) of a complete file, EEXIST being no error); it is called
    /// only where the file itself is locked and missing. Throws Refusal (`fileError`) where the system offers
    /// neither lock, and `std::system_error` as the two locks do.
    StateLock(const std::filesystem::path& directory, const std::filesystem::path& stateFile,
              const std::function<void()>& makeFirst,
              std::chrono::milliseconds patience = DirectoryLock::usualPatience);

    /// To be called with each file that will be renamed to the state file, immediately before the rename.
    /// Throws `std::system_error`.
    void follow(const std::filesystem::path& temporaryFile);

    /// Whether the state file itself is locked, for want of flock(2).
    bool isOnFile() const { return std::holds_alternative<ReplacedFileLock>(lock_); }

private:
    std::variant<DirectoryLock, ReplacedFileLock> lock_;
};

}  // namespace quillmere::workspace
