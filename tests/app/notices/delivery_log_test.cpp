// Of all programs that see an event, one makes its record.
#include "notices/delivery_log.hpp"

#include <chrono>
#include <sstream>

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

using notices::DeliveryLog;

class RecordFiles : public testing::Test {
protected:
    TemporaryDirectory home;
    std::ostringstream said;
    base::LineWriter messages{said, -1};
    const std::filesystem::path directory = home.path() / "a" / "notices";

    void madeDaysAgo(const std::string& key, int days) const
    {
        std::filesystem::last_write_time(
            directory / key, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * days));
    }
};

TEST_F(RecordFiles, areMadeOnceHoweverManyAsk)
{
    DeliveryLog one(directory, messages);
    DeliveryLog other(directory, messages);
    EXPECT_TRUE(one.make("focus-1"));
    EXPECT_FALSE(other.make("focus-1"));
    EXPECT_FALSE(one.make("focus-1"));
    EXPECT_TRUE(other.make("focus-2"));
    EXPECT_EQ(namesIn(directory), (Words{"focus-1", "focus-2"}));
    EXPECT_EQ(said.str(), "");
}

TEST_F(RecordFiles, areSeenByEverybodyWhoeverMadeThem)
{
    const DeliveryLog early(directory, messages);
    DeliveryLog one(directory, messages);
    EXPECT_FALSE(early.has("focus-1"));
    EXPECT_TRUE(one.make("focus-1"));
    EXPECT_TRUE(one.has("focus-1"));
    EXPECT_TRUE(early.has("focus-1"));
    EXPECT_FALSE(early.hadAtFirst("focus-1"));
    EXPECT_TRUE(DeliveryLog(directory, messages).hadAtFirst("focus-1"));
}

TEST_F(RecordFiles, areForTheirOwnerAlone)
{
    EXPECT_TRUE(DeliveryLog(directory, messages).make("focus-1"));
    EXPECT_EQ(modeOf(directory), mode_t{0700});
}

TEST_F(RecordFiles, thatAreTakenBackCanBeMadeAgain)
{
    DeliveryLog one(directory, messages);
    DeliveryLog other(directory, messages);
    EXPECT_TRUE(one.make("focus-1"));
    one.remove("focus-1");
    EXPECT_TRUE(other.make("focus-1"));
    EXPECT_FALSE(one.make("focus-1"));
}

TEST_F(RecordFiles, areMadeAgainWhereTheirDirectoryHasGone)
{
    DeliveryLog records(directory, messages);
    EXPECT_TRUE(records.make("focus-1"));
    std::filesystem::remove_all(home.path() / "a");
    EXPECT_TRUE(records.make("focus-2"));
    EXPECT_EQ(namesIn(directory), (Words{"focus-2"}));
}

TEST_F(RecordFiles, areRemovedAfterFortyDaysUnlessTheEventStillStands)
{
    DeliveryLog records(directory, messages);
    for (const char* key :
         {"focus-1", "focus-2", "question-3", "hook-0123-question-3", "hook-0123-focus-1"}) {
        records.make(key);
        madeDaysAgo(key, 41);
    }
    madeDaysAgo("focus-2", 39);
    records.removeOld({"question-3"});
    EXPECT_EQ(namesIn(directory), (Words{"focus-2", "hook-0123-question-3", "question-3"}));
}

TEST_F(RecordFiles, areNoneToRemoveWhereThereIsNoDirectory)
{
    DeliveryLog(directory, messages).removeOld({});
    DeliveryLog("", messages).removeOld({});
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(RecordFiles, areKeptInMemoryWhereThereIsNoPlaceForThem)
{
    DeliveryLog records("", messages);
    EXPECT_TRUE(records.make("focus-1"));
    EXPECT_FALSE(records.make("focus-1"));
    records.remove("focus-1");
    EXPECT_TRUE(records.make("focus-1"));
    EXPECT_EQ(said.str(), "");
}

TEST_F(RecordFiles, areKeptInMemoryWhereTheyCannotBeMadeWhichIsSaidOnce)
{
    writeText(home.path() / "a", "no directory");
    DeliveryLog records(directory, messages);
    EXPECT_TRUE(records.make("focus-1"));
    EXPECT_FALSE(records.make("focus-1"));
    EXPECT_TRUE(records.make("focus-2"));
    EXPECT_EQ(said.str(),
              "Notices may be given more than once: mkdir: Not a directory: " + (directory).string() + "\n");
}

}  // namespace
}  // namespace quillmere::test
