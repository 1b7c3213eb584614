#include <quillmere/store/state_store.hpp>
#include <quillmere/store/sync.hpp>

#include <cerrno>
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
    syncFile(temporaryURL);
    renameReplacing(temporaryURL, destination);
    syncDirectory(destination.parent_path());
}

}  // namespace quillmere
