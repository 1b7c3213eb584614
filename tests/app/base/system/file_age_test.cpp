#include "base/system/file_age.hpp"

#include <fcntl.h>
#include <sys/stat.h>

#include <cmath>
#include <ctime>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr double secondsOfADay = 86'400;

TEST(FileAge, isTheTimeSinceTheFileWasWritten)
{
    const TemporaryDirectory directory;
    const auto file = directory.path() / "file";
    writeText(file, "");
    // Beyond 2262, and not beyond 2446, where the dates of ext4 end.
    constexpr double inThreeCenturies = 300 * 365.25 * secondsOfADay;
    for (const double age : {0.0, 40 * secondsOfADay, -secondsOfADay, -inThreeCenturies}) {
        const std::time_t writtenAt = std::time(nullptr) - std::lround(age);
        const timespec times[] = {{.tv_sec = writtenAt, .tv_nsec = 0}, {.tv_sec = writtenAt, .tv_nsec = 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
        EXPECT_NEAR(base::secondsSinceWritten(file).value_or(NAN), age, 60) << age;
    }
}

TEST(FileAge, isUnknownWithoutAFile)
{
    const TemporaryDirectory directory;
    EXPECT_EQ(base::secondsSinceWritten(directory.path() / "missing"), std::nullopt);
}

}  // namespace
}  // namespace quillmere::test
