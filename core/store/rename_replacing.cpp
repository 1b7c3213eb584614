#include <quillmere/store/file_descriptor.hpp>
#include <quillmere/store/state_store.hpp>

#include <cstdio>
#include <cstring>

namespace quillmere {
namespace {

bool isPosixCode(int code)
{
#ifdef __GLIBC__
    return ::strerrorname_np(code) != nullptr;
#else
    return code > 0 && code <= ELAST;
#endif
}

void sync(const std::filesystem::path& path, int flags)
{
    FileDescriptor file(path, O_RDONLY | flags);
    if (uninterrupted([&] { return ::fsync(file.get()); }) == -1) {
        throwErrno("fsync", path);
    }
    file.close(path);
}

}  // namespace

void StateStore::renameReplacing(const std::filesystem::path& temporaryURL,
                                 const std::filesystem::path& destination)
{
    if (std::rename(temporaryURL.c_str(), destination.c_str()) != 0) {
        const int code = errno;
        throw std::system_error(std::error_code(isPosixCode(code) ? code : EIO, std::generic_category()));
    }
}

void StateStore::renameReplacingDurably(const std::filesystem::path& temporaryURL,
                                        const std::filesystem::path& destination)
{
    sync(temporaryURL, 0);
    renameReplacing(temporaryURL, destination);
    const std::filesystem::path directory = destination.parent_path();
    sync(directory.empty() ? "." : directory, O_DIRECTORY);
}

}  // namespace quillmere
