#include "workspace/leader_lock.hpp"

#include "base/system/private_directory.hpp"

#include <system_error>

namespace quillmere::workspace {

bool LeaderLock::take()
{
    if (!isHad_ && !directory_.empty()) {
        try {
            base::createOwnersDirectory(directory_);
            lock_ = DirectoryLock::tryTake(directory_);
            isHad_ = lock_.has_value();
            return isHad_;
        } catch (const std::system_error&) {
            // The records, which are in the same place, say it.
        }
    }
    isHad_ = true;
    return true;
}

void LeaderLock::giveBack()
{
    lock_.reset();
    isHad_ = false;
}

}  // namespace quillmere::workspace
