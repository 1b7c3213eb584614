// What tests ask of a file system, and of calls that fail in one.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace quillmere::test {

/// The permissions of what is at `path`.
mode_t modeOf(const std::filesystem::path& path);

/// A FIFO that nobody writes to.
void makeFifo(const std::filesystem::path& path);

/// A socket that nobody serves.
void makeSocket(const std::filesystem::path& path);

/// Two links that lead to each other; the first has the name given.
void makeLinkLoop(const std::filesystem::path& path);

/// How many files this process has open.
std::size_t openFileCount();

/// What `call` fails with: the code of a `std::system_error`, which must be one of POSIX. No code when
/// nothing is thrown.
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
