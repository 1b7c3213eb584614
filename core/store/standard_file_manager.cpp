#include <quillmere/store/file_descriptor.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/store/sync.hpp>

#include <dirent.h>
#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#include <string>

namespace quillmere {
namespace {

namespace fs = std::filesystem;

/// The value of an environment variable that must be an absolute path to count.
std::optional<fs::path> absolutePathFrom(const char* variable)
{
    const char* const value = std::getenv(variable);
    return value && fs::path(value).is_absolute() ? std::optional<fs::path>(value) : std::nullopt;
}

/// The directories of a user in which applications keep their files.
struct Places {
    fs::path applicationSupport;
    fs::path containers;  ///< contains one directory for each group
};

/// The directories on this platform; absent when the environment names no home.
std::optional<Places> places()
{
    const std::optional<fs::path> home = absolutePathFrom("HOME");
#ifdef __APPLE__
    if (home) {
        const fs::path library = *home / "Library";
        return Places{library / "Application Support", library / "Group Containers"};
    }
#else
    const std::optional<fs::path> data = absolutePathFrom("XDG_DATA_HOME");
    if (data || home) {
        const fs::path support = data ? *data : *home / ".local" / "share";
        return Places{support, support / "group-containers"};
    }
#endif
    return std::nullopt;
}

/// Whether an identifier names a file in a directory and leads nowhere else.
bool isPlainName(const fs::path& identifier)
{
    return !identifier.empty() && identifier == identifier.filename() && identifier != "." &&
           identifier != "..";
}

struct stat statusOf(const FileDescriptor& file, const fs::path& path)
{
    struct stat status;
    if (::fstat(file.get(), &status) == -1) {
        throwErrno("fstat", path);
    }
    return status;
}

void writeAll(const FileDescriptor& file, std::string_view bytes, const fs::path& path)
{
    while (!bytes.empty()) {
        const ssize_t count = uninterrupted([&] { return ::write(file.get(), bytes.data(), bytes.size()); });
        if (count == 0) {
            errno = EIO;
        }
        if (count <= 0) {
            throwErrno("write", path);
        }
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

/// The same directory under a path that ends with its name, "a/b" for "a/b/" and "a/b/./".
fs::path withoutTrailingDots(fs::path path)
{
    while ((!path.has_filename() || path.filename() == ".") && !path.parent_path().empty() &&
           path.parent_path() != path) {
        path = path.parent_path();
    }
    return path;
}

/// Creates one directory unless it exists; returns whether it did.
bool makeDirectory(const fs::path& path, mode_t mode)
{
    if (::mkdir(path.c_str(), mode) == 0) {
        return true;
    }
    if (errno != EEXIST) {
        throwErrno("mkdir", path);
    }
    struct stat status;
    const bool leadsSomewhere = ::stat(path.c_str(), &status) == 0;
    if (!leadsSomewhere && errno != ENOENT && errno != ENOTDIR) {
        throwErrno("stat", path);
    }
    if (!leadsSomewhere || !S_ISDIR(status.st_mode)) {
        errno = EEXIST;
        throwErrno("mkdir", path);
    }
    return false;
}

/// Whether a directory has no entries. False when it may not be opened, and when there is no directory.
bool isEmptyDirectory(const fs::path& path)
{
    // Not std::filesystem: its iterators end the process when memory runs out.
    std::unique_ptr<DIR, int (*)(DIR*)> directory(nullptr, ::closedir);
    do {
        directory.reset(::opendir(path.c_str()));
    } while (!directory && errno == EINTR);
    if (!directory) {
        if (errno == EACCES || errno == ENOENT || errno == ENOTDIR) {
            return false;
        }
        throwErrno("opendir", path);
    }
    errno = 0;
    while (const dirent* const entry = ::readdir(directory.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") {
            return false;
        }
    }
    if (errno != 0) {
        throwErrno("readdir", path);
    }
    return true;
}

class StandardFileManager final : public FileManager {
public:
    std::vector<fs::path> applicationSupportDirectories() const override
    {
        std::vector<fs::path> directories;
        if (std::optional<Places> known = places()) {
            directories.push_back(std::move(known->applicationSupport));
        }
        return directories;
    }

    std::optional<fs::path> containerPath(std::string_view groupIdentifier) const override
    {
        const std::optional<Places> known = places();
        const bool hasPath = known && isPlainName(groupIdentifier);
        return hasPath ? std::optional(known->containers / groupIdentifier) : std::nullopt;
    }

    std::optional<fs::path> containerDirectory(std::string_view groupIdentifier) const override
    {
        std::optional<fs::path> container = containerPath(groupIdentifier);
        struct stat status;
        const bool made = container && ::stat(container->c_str(), &status) == 0 && S_ISDIR(status.st_mode);
        return made ? container : std::nullopt;
    }

    fs::path createContainerDirectory(std::string_view groupIdentifier) const override
    {
        const std::optional<fs::path> container = containerPath(groupIdentifier);
        if (!container) {
            errno = ENOENT;
            throwErrno("application support", {});
        }
        createDirectory(*container, std::nullopt);
        return *container;
    }

    bool fileExists(const fs::path& path) const override
    {
        struct stat status;
        // Not stat(2): a dangling link exists, and reading it is an error.
        if (::lstat(path.c_str(), &status) == 0) {
            return true;
        }
        if (errno == ENOENT || errno == ENOTDIR) {
            return false;
        }
        throwErrno("lstat", path);
    }

    Bytes contents(const fs::path& path) const override
    {
        // Opening a FIFO would wait for a writer without O_NONBLOCK.
        FileDescriptor file(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
        const struct stat status = statusOf(file, path);
        if (!S_ISREG(status.st_mode)) {
            errno = S_ISDIR(status.st_mode) ? EISDIR : EINVAL;
            throwErrno("read", path);
        }
        // The file may grow while it is read, so its size is only a hint. One byte more than the size lets
        // the last read(2) return 0 without another allocation.
        constexpr std::size_t growth = 4096;
        Bytes bytes;
        bytes.reserve(static_cast<std::size_t>(status.st_size) + 1);
        while (true) {
            const std::size_t left = bytes.capacity() - bytes.size();
            const std::size_t room = left > 0 ? left : growth;
            char* const destination = bytes.reserve(room);
            const ssize_t count = uninterrupted([&] { return ::read(file.get(), destination, room); });
            if (count == -1) {
                throwErrno("read", path);
            }
            bytes.commit(static_cast<std::size_t>(count));
            if (count == 0) {
                return bytes;
            }
        }
    }

    void writeWithoutOverwriting(const fs::path& path, const ByteSource& content) const override
    {
        constexpr mode_t defaultMode = 0666;
        FileDescriptor file(path, O_WRONLY | O_CREAT | O_EXCL, defaultMode);
        content([&](std::string_view piece) { writeAll(file, piece, path); });
        file.close(path);
    }

    void createDirectory(const fs::path& path, std::optional<mode_t> mode) const override
    {
        constexpr mode_t defaultMode = 0777;
        const fs::path directory = withoutTrailingDots(path);
        const fs::path parent = directory.parent_path();
        if (!parent.empty() && parent != directory && !fileExists(directory)) {
            createParent(parent);
        }
        const bool isNew = makeDirectory(directory, mode.value_or(defaultMode));
        // mkdir(2) applies the umask to the mode.
        if (isNew && mode && uninterrupted([&] { return ::chmod(directory.c_str(), *mode); }) == -1) {
            throwErrno("chmod", directory);
        }
        if (isNew || isEmptyDirectory(directory)) {
            syncDirectory(parent);
        }
    }

    void removeFile(const fs::path& path) const override
    {
        if (::unlink(path.c_str()) == -1) {
            throwErrno("unlink", path);
        }
    }

private:
    /// Also syncs the name of an empty parent: an earlier attempt may have created it and then failed.
    void createParent(const fs::path& parent) const
    {
        if (!fileExists(parent) || isEmptyDirectory(parent)) {
            createDirectory(parent, std::nullopt);
        }
    }
};

}  // namespace

const FileManager& FileManager::standard()
{
    static const StandardFileManager manager;
    return manager;
}

}  // namespace quillmere
