#include <quillmere/store/file_descriptor.hpp>
#include <quillmere/store/sync.hpp>

namespace quillmere {
namespace {

void sync(const std::filesystem::path& path, int flags)
{
    FileDescriptor file(path, O_RDONLY | flags);
    if (uninterrupted([&] { return ::fsync(file.get()); }) == -1) {
        throwErrno("fsync", path);
    }
    file.close(path);
}

}  // namespace

void syncFile(const std::filesystem::path& file) { sync(file, 0); }

void syncDirectory(const std::filesystem::path& directory)
{
    sync(directory.empty() ? "." : directory, O_DIRECTORY);
}

}  // namespace quillmere
