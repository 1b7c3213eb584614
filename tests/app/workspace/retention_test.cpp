// The room that versions may take. Which ones are retained by age: versions_test.cpp.
#include "workspace/retention.hpp"

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using workspace::retained;
using workspace::Version;

/// Five versions of one day, the newest first, each of a hundred bytes but the newest.
std::vector<Version> fiveVersions(std::uintmax_t sizeOfNewest)
{
    std::vector<Version> versions;
    for (std::int64_t number = 5; number > 0; --number) {
        versions.push_back({.number = number,
                            .savedAt = moment + static_cast<double>(number),
                            .file = std::to_string(number),
                            .size = number == 5 ? sizeOfNewest : 100,
                            .isCompressed = false});
    }
    return versions;
}

using Files = std::set<std::filesystem::path>;

TEST(Retention, leavesOutTheOldestThatFindNoRoom)
{
    EXPECT_EQ(retained(fiveVersions(100), 500), (Files{"1", "2", "3", "4", "5"}));
    EXPECT_EQ(retained(fiveVersions(100), 499), (Files{"2", "3", "4", "5"}));
    EXPECT_EQ(retained(fiveVersions(100), 200), (Files{"4", "5"}));
}

TEST(Retention, alwaysRetainsTheNewest) { EXPECT_EQ(retained(fiveVersions(1'000), 10), Files{"5"}); }

TEST(Retention, hasRoomForFourTimesTheStateButAtLeastSixtyFourMegabytes)
{
    EXPECT_EQ(workspace::roomForVersions(0), 64'000'000U);
    EXPECT_EQ(workspace::roomForVersions(16'000'000), 64'000'000U);
    EXPECT_EQ(workspace::roomForVersions(16'000'001), 64'000'004U);
}

}  // namespace
}  // namespace quillmere::test
