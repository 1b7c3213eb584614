#include "notices/turn.hpp"

#include "system/owners_directory.hpp"

#include <system_error>

namespace quillmere::app {

bool Turn::take()
{
    if (!isHad_ && !directory_.empty()) {
        try {
            createOwnersDirectory(directory_);
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

void Turn::giveBack()
{
    lock_.reset();
    isHad_ = false;
}

}  // namespace quillmere::app
