#include "base/system/directory_watch.hpp"

#include <sys/inotify.h>

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace quillmere::base {
namespace {

namespace fs = std::filesystem;

/// This program saves by rename, which is a move. The other events are for directories that are made and
/// deleted, for other programs that write in place, and for changed permissions.
constexpr std::uint32_t everyChange =
    IN_MOVE | IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

[[noreturn]] void fail(const fs::path& path)
{
    throw std::system_error(errno, std::generic_category(), "inotify: " + path.string());
}

/// Whether the error says that the system has no inotify, or that a limit of it is reached.
bool meansNoMoreWatches(int error)
{
    return error == EMFILE || error == ENFILE || error == ENOSPC || error == ENOMEM || error == ENOSYS;
}

std::string troubleText(const fs::path& directory, int error)
{
    return "Changes in " + directory.string() +
           " are looked for once a second only, because the system offers no more watches (inotify: " +
           std::generic_category().message(error) + ").";
}

}  // namespace

DirectoryWatch::DirectoryWatch(fs::path directory)
    : directory_(std::move(directory)), events_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (events_.get() == -1) {
        goOnWithoutWatch(directory_);
    } else {
        watchNearest();
    }
}

bool DirectoryWatch::takeChanges()
{
    if (events_.get() != -1) {
        return takeEvents();
    }
    const DirectoryFingerprint before = std::exchange(fingerprint_, fingerprintOf(directory_));
    return fingerprint_ != before;
}

bool DirectoryWatch::takeEvents()
{
    bool changed = false;
    // Events of every file count: one needless reading costs less than a missed change.
    alignas(inotify_event) std::array<char, 4096> events;
    while (::read(events_.get(), events.data(), events.size()) > 0) {
        changed = true;
    }
    if (errno != EAGAIN && errno != EINTR) {
        fail(directory_);  // a descriptor that stays readable would wake the caller again at once
    }
    if (changed) {
        watchNearest();
    }
    return changed;
}

void DirectoryWatch::watchNearest()
{
    // A directory that is made during the search up the path is found by starting again.
    while (!tryToWatchNearest()) {
    }
}

bool DirectoryWatch::tryToWatchNearest()
{
    fs::path nearest = directory_;
    fs::path below;
    bool isBelowMissing = false;
    int watch = -1;
    while ((watch = ::inotify_add_watch(events_.get(), nearest.c_str(), everyChange)) < 0) {
        isBelowMissing = errno == ENOENT || errno == ENOTDIR;
        if (!(isBelowMissing || errno == EACCES) || !nearest.has_relative_path()) {
            goOnWithoutWatch(nearest);
            return true;
        }
        below = nearest;
        nearest = nearest.parent_path();
    }
    if (watch_ >= 0 && watch_ != watch) {
        ::inotify_rm_watch(events_.get(), watch_);
    }
    watch_ = watch;
    std::error_code ignored;
    return !(isBelowMissing && fs::is_directory(below, ignored));
}

void DirectoryWatch::goOnWithoutWatch(const fs::path& path)
{
    if (!meansNoMoreWatches(errno)) {
        fail(path);
    }
    trouble_ = troubleText(directory_, errno);
    events_ = Descriptor();
    fingerprint_ = fingerprintOf(directory_);
}

}  // namespace quillmere::base
