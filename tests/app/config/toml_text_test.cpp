// TOML as a list of values.
#include "config/toml_text.hpp"

#include <gtest/gtest.h>

namespace quillmere::config {
namespace {

std::vector<TomlEntry> entriesIn(std::string_view text)
{
    const TomlReading reading = readToml(text);
    const auto* const entries = std::get_if<std::vector<TomlEntry>>(&reading);
    EXPECT_TRUE(entries) << text;
    return entries ? *entries : std::vector<TomlEntry>();
}

TomlError errorIn(std::string_view text)
{
    const TomlReading reading = readToml(text);
    const auto* const error = std::get_if<TomlError>(&reading);
    EXPECT_TRUE(error) << text;
    return error ? *error : TomlError{};
}

TEST(ReadToml, givesEachValueWithItsPathAndPlaces)
{
    const std::vector<TomlEntry> entries = entriesIn("\n[block]\nfocus = \"50m\"\n");
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].path, (std::vector<std::string>{"block", "focus"}));
    EXPECT_EQ(entries[0].value, TomlValue("50m"));
    EXPECT_EQ(entries[0].keyPlace, (TextPlace{.line = 3, .column = 1}));
    EXPECT_EQ(entries[0].valuePlace, (TextPlace{.line = 3, .column = 9}));
}

TEST(ReadToml, givesTheValuesInTheOrderOfTheText)
{
    const std::vector<TomlEntry> entries = entriesIn("z = 1\na = 2\nm.b = 3\nm.a = 4");
    ASSERT_EQ(entries.size(), 4U);
    for (std::size_t index = 0; index < entries.size(); ++index) {
        EXPECT_EQ(entries[index].value, TomlValue(static_cast<std::int64_t>(index + 1)));
    }
}

TEST(ReadToml, tellsTheTypesOfValuesApart)
{
    const struct {
        std::string_view text;
        TomlValue value;
    } cases[] = {
        {"a = 'x'", "x"},
        {"a = 7", std::int64_t{7}},
        {"a = ['x', 'y']", std::vector<std::string>{"x", "y"}},
        {"a = []", std::vector<std::string>()},
        {"[a]", EmptyTable()},
        {"a = {}", EmptyTable()},
        {"a = ['x', 1]", OtherValue()},
        {"a = 1.5", OtherValue()},
        {"a = true", true},
        {"a = 2026-11-15", OtherValue()},
        {"[[a]]", OtherValue()},
        {"a.b.c.d.e = 1", OtherValue()},
    };
    for (const auto& each : cases) {
        const std::vector<TomlEntry> entries = entriesIn(each.text);
        ASSERT_EQ(entries.size(), 1U) << each.text;
        EXPECT_EQ(entries[0].value, each.value) << each.text;
    }
}

TEST(ReadToml, saysWhereATextIsNoToml)
{
    const TomlError error = errorIn("focus = 50\nbreak = 5m\n");
    EXPECT_EQ(error.place.line, 2);
    EXPECT_FALSE(error.description.empty());
}

TEST(ReadToml, refusesBytesThatAreNoUtf8) { EXPECT_EQ(errorIn("a = '\xFF'").place.line, 1); }

TEST(ReadToml, refusesKeysThatCouldExhaustTheStack)
{
    std::string deep = "x = 1\n";
    for (int part = 0; part < 30'000; ++part) {
        deep += "a.";
    }
    EXPECT_EQ(errorIn(deep + "a = 1").place, (TextPlace{.line = 2, .column = 1}));
}

TEST(ReadToml, refusesListsThatCouldExhaustTheStack)
{
    EXPECT_EQ(errorIn("a = " + std::string(30'000, '[')).place.line, 1);
}

TEST(TomlText, isReadBackAsItWas)
{
    const std::string texts[] = {"", "plain", "with \"quotes\" and \\", "two\nlines\t\x7F\x01", "für \u2192"};
    for (const std::string& text : texts) {
        const std::vector<TomlEntry> entries = entriesIn("a = " + tomlText(text));
        ASSERT_EQ(entries.size(), 1U) << text;
        EXPECT_EQ(entries[0].value, TomlValue(text));
    }
}

TEST(TomlKey, isReadBackAsItWas)
{
    for (const char* const name : {"report", "weekly-report_2", "of the week", "", "a.b", "ü\"\n"}) {
        const std::vector<TomlEntry> entries = entriesIn(tomlKey(name) + " = 1");
        ASSERT_EQ(entries.size(), 1U) << name;
        EXPECT_EQ(entries[0].path, std::vector<std::string>{name});
    }
    EXPECT_EQ(tomlKey("weekly-report_2"), "weekly-report_2");
}

}  // namespace
}  // namespace quillmere::config
