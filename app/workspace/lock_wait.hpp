// Waiting for a lock that another program holds.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>

namespace quillmere::workspace {

/// Calls `tryLock` until it returns true, up to `patience`; then throws Refusal (`busy`) that names the
/// directory. Passes on what `tryLock` throws.
void waitForLock(const std::function<bool()>& tryLock, const std::filesystem::path& directory,
                 std::chrono::milliseconds patience);

}  // namespace quillmere::workspace
