#include "doctor/probe.hpp"

#include "base/system/descriptor.hpp"

#include <quillmere/records/identifier.hpp>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string_view>

namespace quillmere::doctor {
namespace {

namespace fs = std::filesystem;

/// Repeats a call while a signal interrupts it.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// The errno of a call that returns -1 on failure; 0 for success.
template <class Call>
int errorOf(Call call)
{
    return uninterrupted(call) == -1 ? errno : 0;
}

base::Descriptor opened(const fs::path& path, int flags)
{
    constexpr mode_t ownerOnly = 0600;
    return base::Descriptor(
        uninterrupted([&] { return ::open(path.c_str(), flags | O_CLOEXEC, ownerOnly); }));
}

/// A temporary file named as those of the state, so that later saves remove what a killed run leaves.
class TemporaryName {
public:
    TemporaryName(const fs::path& directory, const fs::path& stateFile)
        : path_(directory /
                ("." + stateFile.filename().string() + "." + Identifier::random().text() + ".tmp"))
    {
    }
    TemporaryName(const TemporaryName&) = delete;
    TemporaryName& operator=(const TemporaryName&) = delete;
    ~TemporaryName() { ::unlink(path_.c_str()); }

    const fs::path& path() const { return path_; }
    const char* text() const { return path_.c_str(); }

private:
    fs::path path_;
};

int writeTo(int file)
{
    constexpr std::string_view content = "quillmere doctor\n";
    const ssize_t count = uninterrupted([&] { return ::write(file, content.data(), content.size()); });
    if (count == -1) {
        return errno;
    }
    return count == static_cast<ssize_t>(content.size()) ? 0 : ENOSPC;
}

int lockFile(int file)
{
    struct flock wholeFile {};
    wholeFile.l_type = F_WRLCK;
    wholeFile.l_whence = SEEK_SET;
    return errorOf([&] { return ::fcntl(file, F_OFD_SETLK, &wholeFile); });
}

int syncDirectory(const fs::path& directory)
{
    const base::Descriptor opening = opened(directory, O_RDONLY | O_DIRECTORY);
    return opening.get() == -1 ? errno : errorOf([&] { return ::fsync(opening.get()); });
}

int replaceAFile(const fs::path& stateFile, const TemporaryName& replacing)
{
    const TemporaryName replaced(stateFile.parent_path(), stateFile);
    const base::Descriptor old = opened(replaced.path(), O_WRONLY | O_CREAT | O_EXCL);
    return old.get() == -1 ? errno : errorOf([&] { return ::rename(replacing.text(), replaced.text()); });
}

int linkTo(const TemporaryName& link, const TemporaryName& linked)
{
    return errorOf([&] { return ::link(linked.text(), link.text()); });
}

/// The calls that need a file of their own.
void probeFile(Probe& results, const fs::path& stateFile, const fs::path& versions)
{
    const fs::path directory = stateFile.parent_path();
    const TemporaryName name(directory, stateFile);
    const base::Descriptor file = opened(name.path(), O_WRONLY | O_CREAT | O_EXCL);
    results.write = file.get() == -1 ? errno : writeTo(file.get());
    if (file.get() == -1) {
        return;
    }
    results.syncFile = errorOf([&] { return ::fsync(file.get()); });
    if (isLockNotOffered(*results.lock)) {
        results.fileLock = lockFile(file.get());
    }
    std::error_code isMissing;
    const fs::path kept = fs::is_directory(versions, isMissing) ? versions : directory;
    results.hardLink = linkTo(TemporaryName(kept, stateFile), name);
    results.replace = replaceAFile(stateFile, name);  // last, since it takes the name away
}

}  // namespace

bool isLockNotOffered(int error) { return error == ENOLCK || error == EOPNOTSUPP || error == ENOSYS; }

int tryLock(const fs::path& directory)
{
    const base::Descriptor opening = opened(directory, O_RDONLY | O_DIRECTORY);
    return opening.get() == -1 ? errno : errorOf([&] { return ::flock(opening.get(), LOCK_EX | LOCK_NB); });
}

Probe probe(const fs::path& stateFile, const fs::path& versions)
{
    Probe results;
    results.lock = tryLock(stateFile.parent_path());
    probeFile(results, stateFile, versions);
    results.syncDirectory = syncDirectory(stateFile.parent_path());
    return results;
}

}  // namespace quillmere::doctor
