// POSIX calls as C++ sees them.
#pragma once

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace quillmere {

/// Throws the error that errno holds, with the call and the path it was about.
[[noreturn]] inline void throwErrno(const char* call, const std::filesystem::path& path)
{
    throw std::filesystem::filesystem_error(call, path, std::error_code(errno, std::generic_category()));
}

/// Repeats a call as long as a signal interrupts it. Not for close(2), which must not be repeated.
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
