// TOML as a list of values.
#include "config/toml_text.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

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

/// The values by their paths.
using ValuesByPath = std::vector<std::pair<std::vector<std::string>, TomlValue>>;

ValuesByPath sorted(ValuesByPath values)
{
    std::sort(values.begin(), values.end(),
              [](const auto& one, const auto& other) { return one.first < other.first; });
    return values;
}

ValuesByPath valuesIn(std::string_view text)
{
    ValuesByPath values;
    for (const TomlEntry& entry : entriesIn(text)) {
        values.emplace_back(entry.path, entry.value);
    }
    return sorted(std::move(values));
}

/// Values of every type, under keys that need quotation marks.
constexpr std::string_view everyType = R"(
"a b.ü\"\n\u001b" = "ü\"\\\n\t\u0007 '''"
literal = 'C:\new'
lines = """
one
two"""
numbers = [0x1F, -9223372036854775807, 9223372036854775807]
fractions = [0.1, 1e300, -0.0, inf, 5.0]
times = [1979-05-27T07:32:00.5-07:00, 1979-05-27T07:32:00, 1979-05-27, 07:32:00]
mixed = [1, "two", { three = [3.5] }, []]
yes = true
inline = { a = { b = 1 }, "c d" = 2 }
[deep.deeper.deepest."below that"]
x = 1
[[list]]
n = 1
[[list]]
n = 2
[list.below]
m = 3
)";

TEST(WithValue, keepsEveryOtherValue)
{
    const std::string text = withValue(everyType, {"block", "focus"}, "\"50m\"");
    ValuesByPath values = valuesIn(everyType);
    values.emplace_back(std::vector<std::string>{"block", "focus"}, "50m");
    EXPECT_EQ(valuesIn(text), sorted(values)) << text;
    for (const char* const written :
         {"-9223372036854775807", "0.1", "1e+300", "-0.0", "inf", "5.0", "1979-05-27T07:32:00.5-07:00",
          "07:32:00", "three = [ 3.5 ]", "[[list]]", "m = 3", "x = 1"}) {
        EXPECT_NE(text.find(written), std::string::npos) << written << " in:\n" << text;
    }
    EXPECT_EQ(withValue(text, {"block", "focus"}, "\"50m\""), text);
}

TEST(CanBeRewritten, isEveryTextButThoseWithTheLowestInteger)
{
    EXPECT_TRUE(config::canBeRewritten(everyType));
    for (const char* const text : {"a = -9223372036854775808", "a = [1, [-9223372036854775808]]",
                                   "[a]\nb = [{ c = -9223372036854775808 }]"}) {
        EXPECT_FALSE(config::canBeRewritten(text)) << text;
    }
}

TEST(WithValue, setsAValueWhereverItStands)
{
    for (const char* const text :
         {"", "block.focus = 1", "[block]\nfocus = 1", "[block]", "block = { focus = 1 }", "block = {}",
          "block = 1", "[block.focus.long]\nx = 1", "[[block]]\nx = 1"}) {
        EXPECT_EQ(valuesIn(withValue(text, {"block", "focus"}, R"(["a", "b"])")),
                  (ValuesByPath{{{"block", "focus"}, std::vector<std::string>{"a", "b"}}}))
            << text;
    }
}

TEST(WithoutValue, removesAValueAndTheTablesThatItLeavesEmpty)
{
    const std::pair<std::string_view, std::string_view> cases[] = {
        {"a.b.c = 1", ""},
        {"a.b.c = 1\na.d = 2", "a.d = 2"},
        {"a.b.c.d = 1\ne = 2", "e = 2"},
        {"a.b = 1", "a.b = 1"},
        {"[a.b]", "[a.b]"},
        {"[a]", "[a]"},
        {"", ""},
    };
    for (const auto& [text, rest] : cases) {
        const std::string without = withoutValue(text, {"a", "b", "c"});
        EXPECT_EQ(valuesIn(without), valuesIn(rest)) << text << " became:\n" << without;
    }
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
