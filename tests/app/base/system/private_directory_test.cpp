// Directories that only their owner can open.
#include "base/system/private_directory.hpp"

#include <gtest/gtest.h>

#include "support/file_system.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using base::createOwnersDirectory;

TEST(OwnersDirectory, isForTheOwnerLikeAllThatIsMadeOnTheWay)
{
    for (const mode_t mask : {0000U, 0077U, 0777U}) {
        const TemporaryDirectory place;
        const FileCreationMask setting(mask);
        createOwnersDirectory(place.path() / "one/two/three");
        for (const char* made : {"one", "one/two", "one/two/three"}) {
            EXPECT_EQ(modeOf(place.path() / made), 0700U) << made << " under " << mask;
        }
    }
}

TEST(OwnersDirectory, leavesWhatIsThereAsItIs)
{
    const TemporaryDirectory place;
    fs::create_directory(place.path() / "one");
    fs::permissions(place.path() / "one", fs::perms::all);
    createOwnersDirectory(place.path() / "one/two");
    createOwnersDirectory(place.path() / "one");
    EXPECT_EQ(modeOf(place.path() / "one"), 0777U);
}

TEST(OwnersDirectory, isNotMadeWhereAFileIsInTheWay)
{
    const TemporaryDirectory place;
    writeText(place.path() / "one", "in the way");
    EXPECT_EQ(failureOf([&] { createOwnersDirectory(place.path() / "one"); }), std::errc::file_exists);
    EXPECT_EQ(failureOf([&] { createOwnersDirectory(place.path() / "one/two"); }),
              std::errc::not_a_directory);
}

}  // namespace
}  // namespace quillmere::test
