#include "workspace/directory_lock.hpp"

#include "workspace/lock_wait.hpp"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <system_error>

namespace quillmere::workspace {
namespace {

base::Descriptor openDirectory(const std::filesystem::path& directory)
{
    int descriptor = -1;
    do {
        descriptor = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    } while (descriptor == -1 && errno == EINTR);
    if (descriptor == -1) {
        throw std::filesystem::filesystem_error("open", directory, {errno, std::generic_category()});
    }
    return base::Descriptor(descriptor);
}

/// Returns whether the lock was taken; false also when a signal interrupted the call.
bool tryLock(int descriptor)
{
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0) {
        return true;
    }
    if (errno != EWOULDBLOCK && errno != EINTR) {
        throw std::system_error(errno, std::generic_category(), "flock");
    }
    return false;
}

}  // namespace

DirectoryLock::DirectoryLock(const std::filesystem::path& directory, std::chrono::milliseconds patience)
    : directory_(openDirectory(directory))
{
    waitForLock([this] { return tryLock(directory_.get()); }, directory, patience);
}

std::optional<DirectoryLock> DirectoryLock::tryTake(const std::filesystem::path& directory)
{
    DirectoryLock lock(openDirectory(directory));
    return tryLock(lock.directory_.get()) ? std::optional(std::move(lock)) : std::nullopt;
}

}  // namespace quillmere::workspace
