// Of all processes that see an event, one makes its record.
#include "notices/delivery_log.hpp"

#include <chrono>
#include <sstream>

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

using notices::DeliveryLog;

class DeliveryRecord : public testing::Test {
protected:
    TemporaryDirectory home;
    std::ostringstream said;
    base::LineWriter messages{said, -1};
    const std::filesystem::path directory = home.path() / "a" / "notices";

    void setAge(const std::string& key, int days) const
    {
        std::filesystem::last_write_time(
            directory / key, std::filesystem::file_time_type::clock::now() - std::chrono::hours(24 * days));
    }
};

TEST_F(DeliveryRecord, isMadeByOneOfAllThatTry)
{
    DeliveryLog one(directory, messages);
    DeliveryLog other(directory, messages);
    EXPECT_TRUE(one.record("focus-1"));
    EXPECT_FALSE(other.record("focus-1"));
    EXPECT_FALSE(one.record("focus-1"));
    EXPECT_TRUE(other.record("focus-2"));
    EXPECT_EQ(namesIn(directory), (Words{"focus-1", "focus-2"}));
    EXPECT_EQ(said.str(), "");
}

TEST_F(DeliveryRecord, isSeenByAll)
{
    const DeliveryLog early(directory, messages);
    DeliveryLog one(directory, messages);
    EXPECT_FALSE(early.has("focus-1"));
    EXPECT_TRUE(one.record("focus-1"));
    EXPECT_TRUE(one.has("focus-1"));
    EXPECT_TRUE(early.has("focus-1"));
    EXPECT_FALSE(early.hadAtStart("focus-1"));
    EXPECT_TRUE(DeliveryLog(directory, messages).hadAtStart("focus-1"));
}

TEST_F(DeliveryRecord, isReadableByItsOwnerOnly)
{
    EXPECT_TRUE(DeliveryLog(directory, messages).record("focus-1"));
    EXPECT_EQ(modeOf(directory), mode_t{0700});
}

TEST_F(DeliveryRecord, canBeMadeAgainAfterItsRemoval)
{
    DeliveryLog one(directory, messages);
    DeliveryLog other(directory, messages);
    EXPECT_TRUE(one.record("focus-1"));
    one.remove("focus-1");
    EXPECT_TRUE(other.record("focus-1"));
    EXPECT_FALSE(one.record("focus-1"));
}

TEST_F(DeliveryRecord, isMadeInANewDirectoryWhereTheLastOneIsGone)
{
    DeliveryLog log(directory, messages);
    EXPECT_TRUE(log.record("focus-1"));
    std::filesystem::remove_all(home.path() / "a");
    EXPECT_TRUE(log.record("focus-2"));
    EXPECT_EQ(namesIn(directory), (Words{"focus-2"}));
}

TEST_F(DeliveryRecord, isPrunedAfterFortyDaysUnlessItsEventStillStands)
{
    DeliveryLog log(directory, messages);
    for (const char* key :
         {"focus-1", "focus-2", "question-3", "hook-0123-question-3", "hook-0123-focus-1"}) {
        log.record(key);
        setAge(key, 41);
    }
    setAge("focus-2", 39);
    log.prune({"question-3"});
    EXPECT_EQ(namesIn(directory), (Words{"focus-2", "hook-0123-question-3", "question-3"}));
}

TEST_F(DeliveryRecord, needNotExistToBePruned)
{
    DeliveryLog(directory, messages).prune({});
    DeliveryLog("", messages).prune({});
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(DeliveryRecord, isInMemoryWhereThereIsNoStateDirectory)
{
    DeliveryLog log("", messages);
    EXPECT_TRUE(log.record("focus-1"));
    EXPECT_FALSE(log.record("focus-1"));
    log.remove("focus-1");
    EXPECT_TRUE(log.record("focus-1"));
    EXPECT_EQ(said.str(), "");
}

TEST_F(DeliveryRecord, isInMemoryWhereNoFileCanBeMadeWhichIsReportedOnce)
{
    writeText(home.path() / "a", "no directory");
    DeliveryLog log(directory, messages);
    EXPECT_TRUE(log.record("focus-1"));
    EXPECT_FALSE(log.record("focus-1"));
    EXPECT_TRUE(log.record("focus-2"));
    EXPECT_EQ(said.str(),
              "Notices may be given more than once: mkdir: Not a directory: " + (directory).string() + "\n");
}

}  // namespace
}  // namespace quillmere::test
