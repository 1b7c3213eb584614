// Which versions are kept, and for how long.
#include "workspace/versions.hpp"

#include "program_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using app::Version;
using app::Versions;

constexpr double day = 86'400;

/// A file that changes, and its versions.
class Kept {
public:
    void keep(const std::string& text, Instant savedAt)
    {
        writeText(file(), text);
        versions().keep(file(), savedAt);
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

TEST(Versions, areTheLastOneOfEachDayForThirtyDays)
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

TEST(Versions, leaveAloneWhatIsNone)
{
    Kept kept;
    kept.keep("one", moment);
    const Words others = {"000002_notes.json", "000003_2026-11-15T15:00:00Z.txt", "2026-11-15T15:00:00Z.json",
                          "-00004_2026-11-15T15:00:00Z.json", "000005 2026-11-15T15:00:00Z.json"};
    for (const std::string& name : others) {
        writeText(kept.directory() / name, "mine");
    }
    for (int number = 0; number < 12; ++number) {
        kept.keep("more", moment + number);
    }
    EXPECT_EQ(kept.texts().size(), 10U);
    EXPECT_EQ(namesIn(kept.directory()).size(), 10U + others.size());
}

TEST(Versions, areNoneOfAFileThatIsMissing)
{
    const Kept kept;
    kept.versions().keep(kept.file(), moment);
    EXPECT_TRUE(kept.versions().list().empty());
    EXPECT_FALSE(fs::exists(kept.directory()));
}

TEST(Versions, areForTheirOwnerOnly)
{
    Kept kept;
    kept.keep("one", moment);
    EXPECT_EQ(modeOf(kept.directory()), 0700U);
}

TEST(Versions, areNoneWithoutAPlace)
{
    const Kept kept;
    writeText(kept.file(), "one");
    Versions({}).keep(kept.file(), moment);
    EXPECT_TRUE(Versions({}).list().empty());
}

}  // namespace
}  // namespace quillmere::test
