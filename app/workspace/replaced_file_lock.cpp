#include "workspace/replaced_file_lock.hpp"

#include "base/refusal.hpp"
#include "workspace/lock_wait.hpp"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <system_error>
#include <utility>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void fail(const char* call, const fs::path& file)
{
    throw fs::filesystem_error(call, file, {errno, std::generic_category()});
}

/// Absent (-1) when there is no file.
base::Descriptor openFile(const fs::path& file)
{
    int descriptor = -1;
    do {
        // A FIFO in the place of the file must not block.
        descriptor = ::open(file.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    } while (descriptor == -1 && errno == EINTR);
    if (descriptor == -1 && errno != ENOENT) {
        fail("open", file);
    }
    return base::Descriptor(descriptor);
}

enum class Answer { taken, busy, notOffered };

Answer tryToLock(const base::Descriptor& file)
{
    struct flock whole {};
    whole.l_type = F_WRLCK;
    whole.l_whence = SEEK_SET;
    if (::fcntl(file.get(), F_OFD_SETLK, &whole) == 0) {
        return Answer::taken;
    }
    return errno == EAGAIN || errno == EACCES || errno == EINTR ? Answer::busy : Answer::notOffered;
}

}  // namespace

ReplacedFileLock::ReplacedFileLock(fs::path file, const std::function<void()>& makeFile,
                                   std::chrono::milliseconds patience)
    : file_(std::move(file))
{
    waitForLock([&] { return tryLock(makeFile); }, file_.parent_path(), patience);
}

void ReplacedFileLock::follow(const fs::path& replacement)
{
    base::Descriptor file = openFile(replacement);
    if (file.get() == -1) {
        fail("open", replacement);
    }
    // Nobody else knows the file yet.
    if (tryToLock(file) != Answer::taken) {
        fail("fcntl", replacement);
    }
    locked_.push_back(std::move(file));
}

bool ReplacedFileLock::tryLock(const std::function<void()>& makeFile)
{
    base::Descriptor file = openFile(file_);
    if (file.get() == -1) {
        makeFile();
        file = openFile(file_);
    }
    if (file.get() == -1) {
        return false;
    }
    switch (tryToLock(file)) {
        case Answer::notOffered: refuse();
        case Answer::busy: return false;
        case Answer::taken: break;
    }
    if (!isCurrent(file)) {
        return false;
    }
    locked_.push_back(std::move(file));
    return true;
}

bool ReplacedFileLock::isCurrent(const base::Descriptor& file) const
{
    struct stat open {};
    if (::fstat(file.get(), &open) == -1) {
        fail("fstat", file_);
    }
    struct stat named {};
    if (::lstat(file_.c_str(), &named) == -1) {
        if (errno == ENOENT) {
            return false;
        }
        fail("lstat", file_);
    }
    return open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

void ReplacedFileLock::refuse() const
{
    throw base::Refusal(
        base::Refusal::Kind::fileError,
        "The file system of " + file_.parent_path().string() +
            " offers no locks, so nothing can be changed there; looking works. Keep the files "
            "on a file system with locks: use --directory, or set XDG_DATA_HOME.");
}

}  // namespace quillmere::workspace
