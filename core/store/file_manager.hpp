// What the library asks of the file system.
#pragma once

#include <quillmere/records/base/byte_sink.hpp>
#include <quillmere/records/base/bytes.hpp>

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <string_view>
#include <vector>

namespace quillmere {

/// The file-system service. Failures are `std::system_error` with the POSIX code in the generic
/// category, so that they compare with `std::errc`. Calls interrupted by a signal are continued, and
/// so are reads and writes that fall short.
class FileManager {
public:
    virtual ~FileManager() = default;

    /// The user's application-support directories, the first one preferred; none when the environment
    /// names none. They need not exist. On Linux: `$XDG_DATA_HOME` when it is an absolute path,
    /// otherwise `$HOME/.local/share` when HOME is one (XDG Base Directory).
    virtual std::vector<std::filesystem::path> applicationSupportDirectories() const = 0;

    /// The directory shared by all programs of a group; absent until one of them has made it, and for an
    /// identifier that is no plain file name. On Linux: `group-containers/<identifier>` in the
    /// application-support directory.
    virtual std::optional<std::filesystem::path> containerDirectory(
        std::string_view groupIdentifier) const = 0;

    /// Makes the shared directory of a group, with the default mode, unless it is there; for hosts, before
    /// they share anything. Throws ENOENT when there is none that could hold it.
    virtual std::filesystem::path createContainerDirectory(std::string_view groupIdentifier) const = 0;

    /// Whether anything is there, of any kind, a link that leads nowhere included. Only a path that leads
    /// nowhere (ENOENT, ENOTDIR) counts as nothing; when the look-up fails otherwise, it throws: something
    /// may be there.
    virtual bool fileExists(const std::filesystem::path& path) const = 0;

    /// The whole content of a regular file, links followed. Throws EISDIR for a directory, ENXIO for
    /// a socket, EINVAL for anything else that is no regular file, and never waits for one.
    virtual Bytes contents(const std::filesystem::path& path) const = 0;

    /// Creates a file with the default mode and writes `content` to it; throws EEXIST when anything has
    /// that name (open(2), O_EXCL), and what `content` throws. A failure may leave an unfinished file.
    virtual void writeWithoutOverwriting(const std::filesystem::path& path,
                                         const ByteSource& content) const = 0;

    /// Creates a directory and its missing parents; an existing one is left as it is. The directory,
    /// if created, gets `mode` whatever the umask says; the parents get the default mode, and so does
    /// the directory without a `mode`. What is made is synced into its parent (fsync(2)), where that may be
    /// opened.
    virtual void createDirectory(const std::filesystem::path& path, std::optional<mode_t> mode) const = 0;

    /// Removes a file.
    virtual void removeFile(const std::filesystem::path& path) const = 0;

    /// The service of this process; stateless.
    static const FileManager& standard();
};

}  // namespace quillmere
