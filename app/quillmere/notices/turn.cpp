#include "notices/turn.hpp"

#include <quillmere/store/file_manager.hpp>

#include <system_error>

namespace quillmere::app {

bool Turn::take()
{
    if (!isHad_ && !directory_.empty()) {
        try {
            constexpr mode_t ownerOnly = 0700;
            FileManager::standard().createDirectory(directory_, ownerOnly);
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
