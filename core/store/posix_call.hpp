// Error handling for POSIX calls.
#pragma once

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace quillmere {

/// Throws the error in errno, with the name of the call and its path.
[[noreturn]] inline void throwErrno(const char* call, const std::filesystem::path& path)
{
    throw std::filesystem::filesystem_error(call, path, std::error_code(errno, std::generic_category()));
}

/// Repeats a call while it fails with EINTR. Not for close(2), which must not be repeated.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result == -1 && errno == EINTR) {
        result = call();
    }
    return result;
}

}  // namespace quillmere
