#include "base/system/directory_names.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

using base::namesInDirectory;

TEST(NamesInDirectory, areThoseOfItsEntries)
{
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.path() / "folder");
    std::filesystem::create_symlink("nowhere", directory.path() / ".link");
    std::vector<std::string> names = namesInDirectory(directory.path());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{".link", "folder"}));
}

TEST(NamesInDirectory, cannotBeReadWithoutTheDirectory)
{
    const TemporaryDirectory directory;
    std::error_code error;
    EXPECT_TRUE(namesInDirectory(directory.path() / "missing", error).empty());
    EXPECT_EQ(error, std::errc::no_such_file_or_directory);
    EXPECT_THROW(namesInDirectory(directory.path() / "missing"), std::filesystem::filesystem_error);
}

}  // namespace
}  // namespace quillmere::test
