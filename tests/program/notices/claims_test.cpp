// Of all programs that see an event, one acts on it.
#include "notices/claims.hpp"

#include <chrono>
#include <sstream>

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

using app::Claims;

class ClaimFiles : public testing::Test {
protected:
    TemporaryDirectory home;
    std::ostringstream messages;
    const std::filesystem::path directory = home.path() / "a" / "notices";

    void madeDaysAgo(const std::string& key, int days) const
    {
        std::filesystem::last_write_time(
            directory / key, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * days));
    }
};

TEST_F(ClaimFiles, areTakenOnceHoweverManyAsk)
{
    Claims one(directory, messages);
    Claims other(directory, messages);
    EXPECT_TRUE(one.take("focus-1"));
    EXPECT_FALSE(other.take("focus-1"));
    EXPECT_FALSE(one.take("focus-1"));
    EXPECT_TRUE(other.take("focus-2"));
    EXPECT_EQ(namesIn(directory), (Words{"focus-1", "focus-2"}));
    EXPECT_EQ(messages.str(), "");
}

TEST_F(ClaimFiles, areForTheirOwnerAlone)
{
    EXPECT_TRUE(Claims(directory, messages).take("focus-1"));
    EXPECT_EQ(modeOf(directory), mode_t{0700});
}

TEST_F(ClaimFiles, thatAreGivenBackCanBeTakenAgain)
{
    Claims one(directory, messages);
    Claims other(directory, messages);
    EXPECT_TRUE(one.take("focus-1"));
    one.giveBack("focus-1");
    EXPECT_TRUE(other.take("focus-1"));
    EXPECT_FALSE(one.take("focus-1"));
}

TEST_F(ClaimFiles, areMadeAgainWhereTheirDirectoryHasGone)
{
    Claims claims(directory, messages);
    EXPECT_TRUE(claims.take("focus-1"));
    std::filesystem::remove_all(home.path() / "a");
    EXPECT_TRUE(claims.take("focus-2"));
    EXPECT_EQ(namesIn(directory), (Words{"focus-2"}));
}

TEST_F(ClaimFiles, areRemovedAfterFortyDaysUnlessTheEventStillStands)
{
    Claims claims(directory, messages);
    for (const char* key :
         {"focus-1", "focus-2", "question-3", "hook-0123-question-3", "hook-0123-focus-1"}) {
        claims.take(key);
        madeDaysAgo(key, 41);
    }
    madeDaysAgo("focus-2", 39);
    claims.removeOld({"question-3"});
    EXPECT_EQ(namesIn(directory), (Words{"focus-2", "hook-0123-question-3", "question-3"}));
}

TEST_F(ClaimFiles, areNoneToRemoveWhereThereIsNoDirectory)
{
    Claims(directory, messages).removeOld({});
    Claims("", messages).removeOld({});
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(ClaimFiles, areKeptInMemoryWhereThereIsNoPlaceForThem)
{
    Claims claims("", messages);
    EXPECT_TRUE(claims.take("focus-1"));
    EXPECT_FALSE(claims.take("focus-1"));
    claims.giveBack("focus-1");
    EXPECT_TRUE(claims.take("focus-1"));
    EXPECT_EQ(messages.str(), "");
}

TEST_F(ClaimFiles, areKeptInMemoryWhereTheyCannotBeMadeWhichIsSaidOnce)
{
    writeText(home.path() / "a", "no directory");
    Claims claims(directory, messages);
    EXPECT_TRUE(claims.take("focus-1"));
    EXPECT_FALSE(claims.take("focus-1"));
    EXPECT_TRUE(claims.take("focus-2"));
    EXPECT_EQ(messages.str(),
              "Notices may be given more than once: mkdir: Not a directory: " + (directory).string() + "\n");
}

}  // namespace
}  // namespace quillmere::test
