// Files of unusual kinds, and the errors of calls.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace quillmere::test {

/// The permissions of the entry at `path`.
mode_t modeOf(const std::filesystem::path& path);

/// A FIFO without a writer.
void makeFifo(const std::filesystem::path& path);

/// A socket without a server.
void makeSocket(const std::filesystem::path& path);

/// Two symbolic links to each other; the first has the given name.
void makeLinkLoop(const std::filesystem::path& path);

/// The number of open files of this process.
std::size_t openFileCount();

/// The error of `call`: the code of a `std::system_error`, which must be a POSIX code. No code when `call`
/// does not throw.
template <class Call>
std::error_code failureOf(Call call)
{
    try {
        call();
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code().category(), std::generic_category());
        return error.code();
    }
    return {};
}

}  // namespace quillmere::test
