// Values of the configuration: which are taken, and how they are written.
#include "config/setting.hpp"

#include <gtest/gtest.h>

#include <algorithm>

namespace quillmere::config {
namespace {

const Key<Values>& key(std::string_view name)
{
    return *std::find_if(keys.begin(), keys.end(), [&](const auto& each) { return each.name == name; });
}

using Texts = std::vector<std::string>;

/// The value as it is written after it was set; "refused" when it was not taken.
std::string takenBy(std::string_view name, const TomlValue& value)
{
    Values values;
    return set(values, key(name), value) ? written(values, key(name)) : "refused";
}

TEST(Setting, isReadAndWrittenByItsType)
{
    const struct {
        std::string_view key;
        TomlValue value;
        std::string written;
    } cases[] = {
        {"block.focus", "50m", "\"50m\""},
        {"block.focus", std::int64_t{90}, "\"1h30m\""},
        {"block.focus", "0m", "refused"},
        {"block.focus", std::int64_t{-5}, "refused"},
        {"block.focus", "soon", "refused"},
        {"block.focus", OtherValue(), "refused"},
        {"block.cycles", std::int64_t{1000}, "1000"},
        {"block.cycles", std::int64_t{1001}, "refused"},
        {"block.cycles", std::int64_t{0}, "refused"},
        {"block.cycles", "4", "refused"},
        {"day-begins", std::int64_t{0}, "0"},
        {"day-begins", std::int64_t{23}, "23"},
        {"day-begins", std::int64_t{24}, "refused"},
        {"day-begins", std::int64_t{-1}, "refused"},
        {"daily-goal", "4h", "\"4h\""},
        {"daily-goal", "1d", "\"1d\""},
        {"daily-goal", "1d1s", "refused"},
        {"daily-goal", "59s", "refused"},
        {"week-begins", "sunday", "\"sunday\""},
        {"week-begins", "Sunday", "refused"},
        {"clock", "12h", "\"12h\""},
        {"clock", std::int64_t{12}, "refused"},
        {"days-off", Texts{"sunday", "saturday", "sunday"}, "[\"saturday\", \"sunday\"]"},
        {"days-off", "sunday", "[\"sunday\"]"},
        {"days-off", Texts{"sunday", "someday"}, "refused"},
        {"days-off", Texts(), ""},
        {"directory", "/srv/focus", "\"/srv/focus\""},
        {"directory", "~/focus", "\"~/focus\""},
        {"directory", "focus", "refused"},
        {"directory", "", "refused"},
        {"directory", std::string("/a\0b", 4), "refused"},
        {"sound", false, "false"},
        {"sound", "false", "refused"},
        {"reminders", Texts{"10m", "5m", "10m"}, "[\"5m\", \"10m\"]"},
        {"reminders", Texts(), "[]"},
        {"reminders", Texts{"5m", "59s"}, "refused"},
        {"reminders", Texts{"5m", "1d1s"}, "refused"},
        {"reminders", "5m", "refused"},
        {"watch.hooks", "notify", "[\"notify\"]"},
        {"watch.hooks", Texts{"a", "b"}, "[\"a\", \"b\"]"},
        {"watch.hooks", EmptyTable(), "refused"},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(takenBy(each.key, each.value), each.written) << each.key << ", " << each.written;
    }
}

TEST(Setting, staysAsItIsWhenAValueIsRefused)
{
    for (const Key<Values>& each : keys) {
        Values values;
        EXPECT_FALSE(set(values, each, OtherValue())) << each.name;
        EXPECT_EQ(values, Values()) << each.name;
    }
}

TEST(Setting, saysWhatItAccepts)
{
    EXPECT_EQ(accepted(key("block.focus")), "a duration from 1 s to 366 d, such as \"25m\" or \"1h30m\"");
    EXPECT_EQ(accepted(key("block.cycles")), "a whole number from 1 to 1000");
    EXPECT_EQ(accepted(key("clock")), "one of \"12h\", \"24h\"");
    EXPECT_EQ(accepted(key("sound")), "true or false");
    EXPECT_EQ(accepted(key("reminders")),
              "a list of durations from 1 min to 1 d, such as [\"5m\", \"1h30m\"]");
    EXPECT_EQ(accepted(key("directory")), "a path that begins with / or ~/");
}

TEST(Setting, isAcceptedAsItIsWritten)
{
    for (const Key<Values>& each : keys) {
        const std::string text = written(Values(), each);
        if (!text.empty()) {
            const TomlReading reading = readToml("a = " + text);
            Values values;
            EXPECT_TRUE(set(values, each, std::get<std::vector<TomlEntry>>(reading).front().value))
                << each.name;
            EXPECT_EQ(values, Values()) << each.name;
        }
    }
}

TEST(Keys, haveNamesOfTheirOwn)
{
    for (auto one = keys.begin(); one != keys.end(); ++one) {
        EXPECT_TRUE(std::none_of(keys.begin(), one, [&](const auto& other) {
            return other.name == one->name;
        })) << one->name;
        EXPECT_FALSE(one->help.empty()) << one->name;
    }
}

}  // namespace
}  // namespace quillmere::config
