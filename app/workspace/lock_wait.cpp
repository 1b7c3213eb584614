#include "workspace/lock_wait.hpp"

#include "base/refusal.hpp"
#include "workspace/directory_lock.hpp"

#include <thread>

namespace quillmere::workspace {

void waitForLock(const std::function<bool()>& tryLock, const std::filesystem::path& directory,
                 std::chrono::milliseconds patience)
{
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (!tryLock()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            throw base::Refusal(base::Refusal::Kind::busy,
                                "Another program is at work in " + directory.string() + "; try again.");
        }
        std::this_thread::sleep_for(DirectoryLock::pauseBetweenTries);
    }
}

}  // namespace quillmere::workspace
