// Failures of the system in words.
#include "text/file_error.hpp"

#include <gtest/gtest.h>

#include <filesystem>

namespace quillmere::test {
namespace {

using app::fileErrorText;
using std::filesystem::filesystem_error;

const std::error_code denied = std::make_error_code(std::errc::permission_denied);

TEST(FileErrorText, hasTheCallTheReasonAndThePath)
{
    EXPECT_EQ(fileErrorText(filesystem_error("open", "/a b/c", denied)), "open: Permission denied: /a b/c");
}

TEST(FileErrorText, hasBothPathsWhereThereAreTwo)
{
    EXPECT_EQ(fileErrorText(filesystem_error("rename", "/a", "/b", denied)),
              "rename: Permission denied: /a: /b");
}

TEST(FileErrorText, hasNoPathWhereNoneIsKnown)
{
    EXPECT_EQ(fileErrorText(filesystem_error("read", denied)), "read: Permission denied");
    EXPECT_EQ(fileErrorText(std::system_error(denied, "flock")), "flock: Permission denied");
    EXPECT_EQ(fileErrorText(std::system_error(denied)), "Permission denied");
}

}  // namespace
}  // namespace quillmere::test
