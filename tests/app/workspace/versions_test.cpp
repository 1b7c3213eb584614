// How versions are kept, listed, compressed and deleted.
#include "workspace/versions.hpp"

#include <unistd.h>

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using workspace::Version;
using workspace::Versions;

constexpr double day = 86'400;

/// A file that changes, with its versions.
class Kept {
public:
    /// Saves a text and keeps it as a version, as the save that follows would.
    void keep(const std::string& text, Instant savedAt)
    {
        fs::remove(file());
        writeText(file(), text);
        versions().keep(file(), savedAt);
        versions().prune(text.size());
    }

    fs::path file() const { return files_.path() / "state.json"; }
    fs::path directory() const { return files_.path() / "beside" / "versions"; }
    Versions versions() const { return Versions(directory()); }

    std::vector<std::string> texts() const
    {
        std::vector<std::string> texts;
        for (const Version& version : versions().list()) {
            texts.push_back(textOf(version.file));
        }
        return texts;
    }

private:
    TemporaryDirectory files_;
};

TEST(Versions, areListedFromTheNewest)
{
    Kept kept;
    kept.keep("one", moment);
    kept.keep("two", moment + 60);
    EXPECT_EQ(kept.texts(), (Words{"two", "one"}));
    const std::vector<Version> list = kept.versions().list();
    EXPECT_EQ(list[0].number, 2);
    EXPECT_EQ(list[0].savedAt, moment + 60);
    EXPECT_EQ(namesIn(kept.directory()),
              (Words{"000001_2026-11-15T15:00:00Z.json", "000002_2026-11-15T15:01:00Z.json"}));
}

TEST(Versions, areTheLastTenOfADay)
{
    Kept kept;
    for (int number = 1; number <= 12; ++number) {
        kept.keep(std::to_string(number), moment + number);
    }
    EXPECT_EQ(kept.texts(), (Words{"12", "11", "10", "9", "8", "7", "6", "5", "4", "3"}));
}

TEST(Versions, areTheLastOneOfEachOfThirtyDays)
{
    const TimeZone zone("UTC");
    Kept kept;
    for (int number = 0; number < 40; ++number) {
        kept.keep("morning " + std::to_string(number), moment + number * day);
        kept.keep("evening " + std::to_string(number), moment + number * day + 3'600);
    }
    const Words texts = kept.texts();
    // Ten from the last five days, then the evenings until thirty days are full.
    ASSERT_EQ(texts.size(), 10U + 25U);
    EXPECT_EQ(texts[9], "morning 35");
    EXPECT_EQ(texts[10], "evening 34");
    EXPECT_EQ(texts.back(), "evening 10");
}

TEST(Versions, areOfTheThirtyNewestDaysHoweverFarApart)
{
    const TimeZone zone("UTC");
    Kept kept;
    for (int number = 0; number < 35; ++number) {
        kept.keep(std::to_string(number), moment + number * 10 * day);
    }
    const Words texts = kept.texts();
    ASSERT_EQ(texts.size(), 30U);
    EXPECT_EQ(texts.back(), "5");
}

TEST(Versions, loseOneDayAtMostToAWrongClock)
{
    const TimeZone zone("UTC");
    Kept kept;
    for (int number = 0; number < 40; ++number) {
        kept.keep("day " + std::to_string(number), moment + number * day);
    }
    kept.keep("leap", moment + 1'000 * day);
    kept.keep("day 40", moment + 40 * day);
    const Words texts = kept.texts();
    ASSERT_EQ(texts.size(), 30U);
    EXPECT_EQ(texts[0], "day 40");
    EXPECT_EQ(texts[1], "leap");
    EXPECT_EQ(texts.back(), "day 12");
}

TEST(Versions, retainTheLatestOfADayNotTheHighestNumber)
{
    const TimeZone zone("UTC");
    Kept kept;
    kept.keep("noon", moment - 3 * 3'600);
    kept.keep("evening", moment);
    // The clock was set back.
    kept.keep("noon again", moment - 3 * 3'600);
    for (int number = 0; number < 10; ++number) {
        kept.keep("tomorrow", moment + day + number);
    }
    EXPECT_EQ(kept.texts().size(), 11U);
    EXPECT_EQ(kept.texts().back(), "evening");
}

TEST(Versions, retainTheHigherNumberOfTwoWithTheSameTime)
{
    const TimeZone zone("UTC");
    Kept kept;
    kept.keep("one", moment);
    kept.keep("two", moment);
    for (int number = 0; number < 10; ++number) {
        kept.keep("tomorrow", moment + day + number);
    }
    EXPECT_EQ(kept.texts().back(), "two");
}

TEST(Versions, countDaysByTheLocalClock)
{
    // 15:00 and 15:30 UTC are before and after midnight there.
    const TimeZone zone("Etc/GMT-9");
    Kept kept;
    kept.keep("before midnight", moment - 60);
    kept.keep("after midnight", moment);
    for (int number = 0; number < 10; ++number) {
        kept.keep("tomorrow", moment + day);
    }
    EXPECT_EQ(kept.texts().size(), 12U);
}

TEST(Versions, keepTheirOrderWhenTheClockIsSetBack)
{
    Kept kept;
    kept.keep("one", moment);
    kept.keep("two", moment - 3'600);
    EXPECT_EQ(kept.texts(), (Words{"two", "one"}));
}

TEST(Versions, leaveOtherFilesAlone)
{
    Kept kept;
    kept.keep("one", moment);
    const Words others = {"000002_notes.json",
                          "000003_2026-11-15T15:00:00Z.txt",
                          "2026-11-15T15:00:00Z.json",
                          "-00004_2026-11-15T15:00:00Z.json",
                          "000005 2026-11-15T15:00:00Z.json",
                          "6_2026-11-15T15:00:00Z.json",
                          "0000007_2026-11-15T15:00:00Z.json",
                          "000008_2026-11-15T16:00:00+01:00.json",
                          "1000000000001_2026-11-15T15:00:00Z.json",
                          "9223372036854775807_2026-11-15T15:00:00Z.json",
                          "9223372036854775808_2026-11-15T15:00:00Z.json"};
    for (const std::string& name : others) {
        writeText(kept.directory() / name, "mine");
    }
    for (int number = 0; number < 12; ++number) {
        kept.keep("more", moment + number);
    }
    EXPECT_EQ(kept.texts().size(), 10U);
    EXPECT_EQ(kept.versions().list().front().number, 13);
    EXPECT_EQ(namesIn(kept.directory()).size(), 10U + others.size());
}

TEST(Versions, areFilesOnly)
{
    Kept kept;
    kept.keep("one", moment);
    const auto named = [&](const char* number) {
        return kept.directory() / (std::string(number) + "_2020-11-15T15:00:00Z.json");
    };
    fs::create_directories(named("000001"));
    makeFifo(named("000002"));
    fs::create_symlink(kept.file(), named("000003"));
    fs::create_symlink("nowhere", named("000004"));
    for (int number = 0; number < 12; ++number) {
        kept.keep("more", moment + number);
    }
    EXPECT_EQ(kept.texts(), Words(10, "more"));
    EXPECT_EQ(kept.versions().list().front().number, 13);
    EXPECT_EQ(namesIn(kept.directory()).size(), 14U);
}

TEST(Versions, areKeptThoughAnExpiredOneCannotBeDeleted)
{
    if (::geteuid() != 0) {
        GTEST_SKIP() << "only the superuser can leave files of somebody else";
    }
    Kept kept;
    for (int number = 0; number < 10; ++number) {
        kept.keep("more", moment);
    }
    fs::remove(kept.file());
    // With the sticky bit, everyone may create files and delete only their own.
    fs::permissions(kept.directory(), fs::perms::all | fs::perms::sticky_bit);
    for (const fs::path& above : {kept.file().parent_path(), kept.directory().parent_path()}) {
        fs::permissions(above, fs::perms::all);
    }
    writeText(kept.file(), "the last");
    const UnprivilegedUser user;
    if (!user.isOne()) {
        GTEST_SKIP() << "there is no ordinary user here";
    }
    kept.versions().keep(kept.file(), moment);
    kept.versions().prune(1);
    EXPECT_EQ(kept.texts().front(), "the last");
    EXPECT_EQ(kept.texts().size(), 11U);
}

TEST(Versions, loseTheTemporaryFilesOfADeadProcess)
{
    Kept kept;
    kept.keep("one", moment);
    writeText(kept.directory() / ".000002_2026-11-15T15:00:00Z.json.E25B4778-6981-4E1A-B0C8-AC8DE990BFF1.tmp",
              "half of");
    writeText(kept.directory() / ".mine", "mine");
    kept.keep("two", moment);
    EXPECT_EQ(namesIn(kept.directory()),
              (Words{".mine", "000001_2026-11-15T15:00:00Z.json", "000002_2026-11-15T15:00:00Z.json"}));
}

TEST(Versions, areNotMadeOfAMissingFile)
{
    const Kept kept;
    kept.versions().keep(kept.file(), moment);
    EXPECT_TRUE(kept.versions().list().empty());
    EXPECT_FALSE(fs::exists(kept.directory()));
}

TEST(Versions, areReadableByTheirOwnerOnly)
{
    const FileCreationMask mask(0);
    Kept kept;
    kept.keep("one", moment);
    EXPECT_EQ(modeOf(kept.directory()), 0700U);
    // XDG Base Directory: created parents too.
    EXPECT_EQ(modeOf(kept.directory().parent_path()), 0700U);
}

TEST(Versions, areNotMadeWithoutADirectory)
{
    const Kept kept;
    writeText(kept.file(), "one");
    Versions({}).keep(kept.file(), moment);
    EXPECT_TRUE(Versions({}).list().empty());
}

std::vector<bool> areCompressed(const Versions& versions)
{
    std::vector<bool> compressed;
    for (const Version& version : versions.list()) {
        compressed.push_back(version.isCompressed);
    }
    return compressed;
}

TEST(Versions, beforeTheLastThreeAreCompressedOneAtATime)
{
    Kept kept;
    for (const char* text : {"one", "two", "three", "four", "five"}) {
        kept.keep(text, moment);
    }
    EXPECT_TRUE(kept.versions().compressOne());
    EXPECT_EQ(areCompressed(kept.versions()), (std::vector<bool>{false, false, false, true, false}));
    EXPECT_TRUE(kept.versions().compressOne());
    EXPECT_FALSE(kept.versions().compressOne());
    EXPECT_EQ(namesIn(kept.directory())[0], "000001_2026-11-15T15:00:00Z.json.zst");
}

TEST(Versions, areReadAlsoWhenTheyAreCompressed)
{
    Kept kept;
    const QuillmereState state = fullState();
    for (int number = 0; number < 4; ++number) {
        kept.keep(std::string(StateStore::encoder().encode(state).view()), moment + number);
    }
    kept.versions().compressOne();
    EXPECT_EQ(workspace::stateOf(kept.versions().list().back()), state);
}

TEST(Versions, areListedOnceWhenAProcessDiedWhileItCompressedOne)
{
    Kept kept;
    for (const char* text : {"one", "two", "three", "four"}) {
        kept.keep(text, moment);
    }
    const fs::path whole = kept.versions().list().back().file;
    kept.versions().compressOne();
    writeText(whole, "one");
    EXPECT_EQ(areCompressed(kept.versions()), (std::vector<bool>(4, false)));
    EXPECT_TRUE(kept.versions().compressOne());
    EXPECT_FALSE(fs::exists(whole));
}

TEST(Versions, giveWayFromTheOldestButNeverTheNewest)
{
    Kept kept;
    for (const char* text : {"one", "two", "three"}) {
        kept.keep(text, moment);
    }
    EXPECT_TRUE(kept.versions().giveWay(kept.directory()));
    EXPECT_EQ(kept.texts(), (Words{"three", "two"}));
    EXPECT_TRUE(kept.versions().giveWay(kept.directory()));
    EXPECT_FALSE(kept.versions().giveWay(kept.directory()));
    EXPECT_EQ(kept.texts(), Words{"three"});
}

TEST(Versions, giveNoWayForAnotherFileSystem)
{
    Kept kept;
    kept.keep("one", moment);
    kept.keep("two", moment);
    EXPECT_FALSE(kept.versions().giveWay("/proc"));
}

}  // namespace
}  // namespace quillmere::test
