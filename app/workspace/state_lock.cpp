#include "workspace/state_lock.hpp"

#include <system_error>

namespace quillmere::workspace {
namespace {

/// Whether the error of flock(2) says that the file system offers no lock of this kind.
bool meansNoLocks(const std::error_code& error)
{
    return error == std::errc::no_lock_available || error == std::errc::operation_not_supported ||
           error == std::errc::not_supported || error == std::errc::function_not_supported;
}

std::variant<DirectoryLock, ReplacedFileLock> take(const std::filesystem::path& directory,
                                                   const std::filesystem::path& stateFile,
                                                   const std::function<void()>& makeFirst,
                                                   std::chrono::milliseconds patience)
{
    try {
        return DirectoryLock(directory, patience);
    } catch (const std::system_error& error) {
        if (!meansNoLocks(error.code())) {
            throw;
        }
    }
    return ReplacedFileLock(stateFile, makeFirst, patience);
}

}  // namespace

StateLock::StateLock(const std::filesystem::path& directory, const std::filesystem::path& stateFile,
                     const std::function<void()>& makeFirst, std::chrono::milliseconds patience)
    : lock_(take(directory, stateFile, makeFirst, patience))
{
}

void StateLock::follow(const std::filesystem::path& temporaryFile)
{
    if (auto* const ofFile = std::get_if<ReplacedFileLock>(&lock_)) {
        ofFile->follow(temporaryFile);
    }
}

}  // namespace quillmere::workspace
