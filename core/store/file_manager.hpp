// The calls to the file system that the library needs.
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/records/base/bytes.hpp>

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmere {

/// The file-system service. Failures are `std::system_error` with the POSIX code in the generic category,
/// so that they compare with `std::errc`. A call that a signal interrupts is repeated; a short read or write
/// is continued.
class FileManager {
public:
    virtual ~FileManager() = default;

    /// The user's application-support directories, the preferred one first; empty when the environment
    /// names none. They need not exist. On Linux: `$XDG_DATA_HOME` when it is an absolute path,
    /// otherwise `$HOME/.local/share` when HOME is one (XDG Base Directory).
    virtual std::vector<std::filesystem::path> applicationSupportDirectories() const = 0;

    /// The path of the directory that all programs of a group share, whether or not it exists. Absent when
    /// there is no application-support directory, and for an identifier that is not a plain file name. On
    /// Linux: `group-containers/<identifier>` in the application-support directory.
    virtual std::optional<std::filesystem::path> containerPath(std::string_view groupIdentifier) const = 0;

    /// The same path if the directory exists; absent otherwise.
    virtual std::optional<std::filesystem::path> containerDirectory(
        std::string_view groupIdentifier) const = 0;

    /// Creates the shared directory of a group, with the default mode, unless it exists; returns its path.
    /// Programs call it before they write to the directory. Throws ENOENT when there is no path for it.
    virtual std::filesystem::path createContainerDirectory(std::string_view groupIdentifier) const = 0;

    /// Whether a file of any kind has this name, a dangling symbolic link included. ENOENT and ENOTDIR mean
    /// no; any other failure of lstat(2) is thrown, because the file may exist.
    virtual bool fileExists(const std::filesystem::path& path) const = 0;

    /// The whole content of a regular file; follows links. Throws EISDIR for a directory, ENXIO for a
    /// socket, and EINVAL for any other kind of file. Never blocks on a FIFO or a device.
    virtual Bytes contents(const std::filesystem::path& path) const = 0;

    /// Creates a file with the default mode and writes `content` to it. Throws EEXIST when the name is taken
    /// (open(2), O_EXCL), and passes on exceptions of `content`. A failure may leave an unfinished file.
    virtual void writeWithoutOverwriting(const std::filesystem::path& path,
                                         const ByteSource& content) const = 0;

    /// Creates a directory and its missing parents; an existing directory is left as it is. The new
    /// directory gets `mode` whatever the umask is; its parents get the default mode, and so does the
    /// directory when `mode` is absent. The parent of each new directory is synced (fsync(2)) where the
    /// system offers it; so is the parent of an empty directory, because an earlier attempt may have created
    /// it and then failed to sync.
    virtual void createDirectory(const std::filesystem::path& path, std::optional<mode_t> mode) const = 0;

    /// Removes a file.
    virtual void removeFile(const std::filesystem::path& path) const = 0;

    /// The service of this process; stateless.
    static const FileManager& standard();
};

}  // namespace quillmere
