#include <quillmere/store/file_descriptor.hpp>
#include <quillmere/store/sync.hpp>

namespace quillmere {
namespace {

void sync(const FileDescriptor& file, const std::filesystem::path& path)
{
    if (uninterrupted([&] { return ::fsync(file.get()); }) == -1) {
        throwErrno("fsync", path);
    }
}

/// Whether the error says that the system does not offer to sync this directory, rather than that a sync
/// failed. A process may be allowed to write to a directory but not to open it (mode -wx).
bool meansNotOffered(const std::error_code& error)
{
    return error == std::errc::permission_denied || error == std::errc::invalid_argument ||
           error == std::errc::not_supported || error == std::errc::operation_not_supported;
}

}  // namespace

void syncFile(const std::filesystem::path& file)
{
    FileDescriptor descriptor(file, O_RDONLY);
    sync(descriptor, file);
    descriptor.close(file);
}

bool syncDirectory(const std::filesystem::path& directory)
{
    const std::filesystem::path path = directory.empty() ? "." : directory;
    try {
        FileDescriptor descriptor(path, O_RDONLY | O_DIRECTORY);
        sync(descriptor, path);
        descriptor.close(path);
        return true;
    } catch (const std::system_error& error) {
        if (!meansNotOffered(error.code())) {
            throw;
        }
        return false;
    }
}

}  // namespace quillmere
