#include "workspace/leader_lock.hpp"

#include "base/system/private_directory.hpp"

#include <system_error>

namespace quillmere::workspace {

bool LeaderLock::tryAcquire()
{
    if (!isHeld_ && !directory_.empty()) {
        try {
            base::createOwnersDirectory(directory_);
            lock_ = DirectoryLock::tryTake(directory_);
            isHeld_ = lock_.has_value();
            return isHeld_;
        } catch (const std::system_error&) {
            // The delivery log uses the same directory and reports the error.
        }
    }
    isHeld_ = true;
    return true;
}

void LeaderLock::release()
{
    lock_.reset();
    isHeld_ = false;
}

std::filesystem::path noticesDirectory(const std::filesystem::path& stateDirectory)
{
    return stateDirectory.empty() ? stateDirectory : stateDirectory / "notices";
}

bool hasLeader(const std::filesystem::path& directory)
{
    std::error_code isUnknown;
    if (directory.empty()) {
        return true;
    }
    if (!std::filesystem::exists(directory, isUnknown)) {
        return isUnknown.operator bool();
    }
    try {
        return !DirectoryLock::tryTake(directory);
    } catch (const std::system_error&) {
        return true;
    }
}

}  // namespace quillmere::workspace
