// The file in which programs set what a person chooses in them.
#include "config/preferences.hpp"

#include "base/refusal.hpp"
#include "config/keys.hpp"
#include "config/setting.hpp"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <iterator>
#include <system_error>
#include <utility>

#include "support/temporary_directory.hpp"

namespace quillmere::config {
namespace {

using Kind = base::Refusal::Kind;

class Preferences : public testing::Test {
protected:
    const test::TemporaryDirectory place;
    const std::filesystem::path directory = place.path() / "home" / "quillmere";
    const std::filesystem::path file = directory / "preferences.toml";

    void has(const std::string& text) const { write(file, text); }
    void personHas(const std::string& text) const { write(directory / "config.toml", text); }
    void sets(const std::string& name, const std::string& typed) const
    {
        setPreference(directory, name, typed);
    }
    Configuration reads() const { return read(directory); }
    std::string content() const { return test::textOf(file); }
    /// The refusal of a value, or of a removal where there is none.
    std::string refused(Kind kind, const std::string& name, const std::optional<std::string>& typed) const
    {
        try {
            typed ? sets(name, *typed) : static_cast<void>(unsetPreference(directory, name));
        } catch (const base::Refusal& refusal) {
            EXPECT_EQ(refusal.kind(), kind) << refusal.what();
            return refusal.what();
        }
        ADD_FAILURE() << name << " was accepted";
        return "";
    }

private:
    void write(const std::filesystem::path& path, const std::string& text) const
    {
        std::filesystem::create_directories(directory);
        test::writeText(path, text);
    }
};

mode_t modeOf(const std::filesystem::path& path)
{
    struct stat status = {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777U;
}

/// Values that differ from the default of each key that can be set.
const std::pair<std::string, std::string> chosen[] = {
    {"directory", "~/Übung \"a\\b\""},
    {"clock", "12h"},
    {"week-begins", "sunday"},
    {"day-begins", "4"},
    {"daily-goal", "4h"},
    {"days-off", R"(["saturday", "sunday"])"},
    {"sound", "false"},
    {"reminders", "[]"},
    {"block.focus", "50m"},
    {"block.break", "7"},
    {"block.cycles", "3"},
};

TEST_F(Preferences, readBackAsTheyWereSet)
{
    for (const auto& [name, typed] : chosen) {
        sets(name, typed);
    }
    const Configuration configuration = reads();
    EXPECT_EQ(configuration.problems.size(), 0U);
    EXPECT_EQ(configuration.values, (Values{.focusSeconds = 3000,
                                            .breakSeconds = 420,
                                            .cycleCount = 3,
                                            .templates = {},
                                            .weekBegins = Weekday::sunday,
                                            .dayBeginsAtHour = 4,
                                            .dailyGoalSeconds = 14'400,
                                            .daysOff = {Weekday::saturday, Weekday::sunday},
                                            .hours = base::Hours::twelve,
                                            .directory = "~/Übung \"a\\b\"",
                                            .hooks = {},
                                            .sound = false,
                                            .reminderSeconds = {}}));
    EXPECT_EQ(configuration.origins.size(), std::size(chosen));
    EXPECT_EQ(configuration.origins.at("block.focus").file, file);
}

TEST_F(Preferences, takeEachValueAsItIsShown)
{
    for (const auto& [name, typed] : chosen) {
        sets(name, typed);
    }
    const Values first = reads().values;
    for (const Key<Values>& key : keys) {
        if (const std::string shown = written(first, key); !shown.empty()) {
            sets(std::string(key.name), shown);
        }
    }
    EXPECT_EQ(reads().values, first);
}

TEST_F(Preferences, areForTheirOwnerAlone)
{
    const mode_t before = ::umask(0);
    sets("clock", "12h");
    EXPECT_EQ(::umask(before), 0U);
    EXPECT_EQ(modeOf(file), 0600U);
    EXPECT_EQ(modeOf(directory), 0700U);
    EXPECT_EQ(modeOf(directory.parent_path()), 0700U);
}

TEST_F(Preferences, leaveNoOtherFileBehind)
{
    sets("clock", "12h");
    sets("clock", "24h");
    EXPECT_EQ(test::namesIn(directory), std::vector<std::string>{"preferences.toml"});
}

TEST_F(Preferences, keepAllOtherValues)
{
    has("block = { focus = '30m' }\nwindow.width = 300.5\nopened = 2026-11-22T10:00:00Z\nclock = 'odd'\n"
        "[template.\"of the week\"]\nwhy = 'Mail'\n[[recent]]\nplace = 'a'\n[[recent]]\nplace = 'b'\n");
    const Configuration before = reads();
    sets("block.cycles", "2");
    const std::string text = content();
    for (const char* const kept :
         {"300.5", "2026-11-22T10:00:00Z", "\"odd\"", "\"Mail\"", "\"a\"", "\"b\""}) {
        EXPECT_NE(text.find(kept), std::string::npos) << kept << " in:\n" << text;
    }
    Configuration after = reads();
    EXPECT_EQ(after.values.cycleCount, 2);
    after.values.cycleCount = before.values.cycleCount;
    EXPECT_EQ(after.values, before.values);
    EXPECT_EQ(after.problems.size(), before.problems.size());
}

TEST_F(Preferences, areRemovedOneByOne)
{
    sets("block.focus", "50m");
    sets("clock", "12h");
    EXPECT_TRUE(unsetPreference(directory, "block.focus"));
    EXPECT_EQ(reads().values, (Values{.templates = {}, .hours = base::Hours::twelve}));
    EXPECT_EQ(content().find("block"), std::string::npos) << content();
}

TEST_F(Preferences, areNotWrittenWhenThereIsNothingToRemove)
{
    EXPECT_FALSE(unsetPreference(directory, "clock"));
    EXPECT_FALSE(std::filesystem::exists(directory.parent_path()));
    has("# mine\nblock.focus = '50m'\n");
    EXPECT_FALSE(unsetPreference(directory, "block.cycles"));
    EXPECT_EQ(content(), "# mine\nblock.focus = '50m'\n");
}

TEST_F(Preferences, areRemovedByAnEmptyValue)
{
    sets("days-off", "sunday");
    sets("days-off", "[]");
    EXPECT_EQ(reads().origins.size(), 0U);
}

TEST_F(Preferences, removeAWrongValueToo)
{
    has("block.focus = 'long'\n[clock.hours]\nlong = 1\n");
    EXPECT_TRUE(unsetPreference(directory, "block.focus"));
    EXPECT_TRUE(unsetPreference(directory, "clock"));
    EXPECT_EQ(reads().problems.size(), 0U);
}

TEST_F(Preferences, refuseAValueAndSayWhatIsAccepted)
{
    const struct {
        std::string name;
        std::string typed;
        std::string sentence;
    } cases[] = {
        {"block.focus", "long",
         R"(block.focus must be a duration from 1 s to 366 d, such as "25m" or "1h30m".)"},
        {"block.cycles", "0", "block.cycles must be a whole number from 1 to 1000."},
        {"block.cycles", "3\nclock = '12h'", "block.cycles must be a whole number from 1 to 1000."},
        {"clock", "13h", R"(clock must be one of "12h", "24h".)"},
        {"sound", "loud", "sound must be true or false."},
        {"directory", "focus", "directory must be a path that begins with / or ~/."},
        {"directory", "/\xFF", "directory must be a path that begins with / or ~/."},
        {"fokus", "1",
         "fokus is no key. The keys are directory, clock, week-begins, day-begins, daily-goal, "
         "days-off, sound, reminders, block.focus, block.break, block.cycles, watch.hooks; "
         "templates stand in tables such as [template.report]."},
        {"block.fokus", "1", "block.fokus is no key. The keys of [block] are focus, break, cycles."},
        {"", "1", ""},
    };
    for (const auto& [name, typed, sentence] : cases) {
        const std::string refusal = refused(Kind::invalidRequest, name, typed);
        EXPECT_TRUE(sentence.empty() || refusal == sentence) << refusal;
    }
    EXPECT_FALSE(std::filesystem::exists(directory));
}

TEST_F(Preferences, leaveTemplatesAndCommandsToThePerson)
{
    for (const std::string name : {"watch.hooks", "template.report", "template.report.why", "template"}) {
        for (const std::optional<std::string>& typed : {std::optional<std::string>("echo"), {}}) {
            EXPECT_EQ(refused(Kind::invalidRequest, name, typed),
                      name + " is set in your own file only; edit it with quillmere config --edit.");
        }
    }
}

TEST_F(Preferences, areNotWrittenOverAFileThatIsNoToml)
{
    const std::string text = "clock = '12h'\nblock.focus = 50m\n";
    has(text);
    for (const std::optional<std::string>& typed : {std::optional<std::string>("24h"), {}}) {
        const std::string refusal = refused(Kind::unusableData, "clock", typed);
        EXPECT_TRUE(refusal.starts_with(file.string() + ":2:")) << refusal;
        EXPECT_NE(refusal.find(": This is no TOML: "), std::string::npos) << refusal;
        EXPECT_TRUE(refusal.ends_with(" Nothing was written; mend the file, or remove it.")) << refusal;
    }
    EXPECT_EQ(content(), text);
}

TEST_F(Preferences, areNotWrittenOverANumberThatCannotBeKept)
{
    const std::string text = "mine = -9223372036854775808\n";
    has(text);
    EXPECT_NE(refused(Kind::unusableData, "clock", "24h").find("cannot be kept"), std::string::npos);
    EXPECT_EQ(content(), text);
}

TEST_F(Preferences, areNotWrittenOverAValueInPlaceOfATheirTable)
{
    for (const char* const text : {"block = 4\n", "[[block]]\nsize = 4\n"}) {
        has(text);
        const std::string refusal = refused(Kind::unusableData, "block.focus", "50m");
        EXPECT_TRUE(refusal.starts_with(file.string() + ":1:")) << refusal;
        EXPECT_NE(refusal.find(": block must be a table. "), std::string::npos) << refusal;
        EXPECT_EQ(content(), text);
    }
    has("[block]\n");
    sets("block.focus", "50m");
    EXPECT_EQ(reads().values.focusSeconds, 3000);
}

TEST_F(Preferences, neverBecomeLargerThanIsRead)
{
    sets("clock", "12h");
    const std::string before = content();
    const std::string refusal =
        refused(Kind::unusableData, "directory", "/" + std::string(mostFileBytes, 'a'));
    EXPECT_EQ(refusal, file.string() +
                           ": It is larger than 64 KiB, or would become so. Nothing was written; mend the "
                           "file, or remove it.");
    EXPECT_EQ(content(), before);
    has("#" + std::string(mostFileBytes, '.'));
    refused(Kind::unusableData, "clock", "24h");
    EXPECT_EQ(content().size(), mostFileBytes + 1);
}

TEST_F(Preferences, neverBecomeAFileThatIsNotRead)
{
    std::string text = "long = \"\"\"\n";
    for (int line = 0; line < 501; ++line) {
        text += ".\n";
    }
    text += "\"\"\"\n";
    for (const std::string& unwritable : {text, std::string("[\"two\\nlines\"]\nx = 1\n")}) {
        has(unwritable);
        refused(Kind::unusableData, "clock", "12h");
        EXPECT_EQ(content(), unwritable);
    }
}

TEST_F(Preferences, reportAFileThatCannotBeRead)
{
    std::filesystem::create_directories(file);
    EXPECT_THROW(sets("clock", "12h"), std::system_error);
}

TEST_F(Preferences, needADirectory)
{
    EXPECT_THROW(setPreference({}, "clock", "12h"), base::Refusal);
    EXPECT_THROW(unsetPreference({}, "clock"), base::Refusal);
}

TEST_F(Preferences, areSaidWithTheFileThatWins)
{
    EXPECT_EQ(settingText(reads(), "block.focus"), R"(block.focus is "25m", the default.)");
    EXPECT_EQ(settingText(reads(), "daily-goal"), "daily-goal is not set.");
    sets("block.focus", "90");
    EXPECT_EQ(settingText(reads(), "block.focus"), R"(block.focus is "1h30m".)");
    personHas("\nblock.focus = '50m'\n");
    EXPECT_EQ(
        settingText(reads(), "block.focus"),
        R"(config.toml says in line 2 that block.focus is "50m", and wins; edit it with quillmere config )"
        "--edit.");
}

}  // namespace
}  // namespace quillmere::config
