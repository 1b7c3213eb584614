// The files of the configuration: which values take effect, and what is said about the others.
#include "config/configuration.hpp"

#include <gtest/gtest.h>

#include <unistd.h>

#include "base/refusal.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::config {
namespace {

using test::TemporaryDirectory;
using test::writeText;
using Texts = std::vector<std::string>;

/// What is said about a file with this text.
Texts problemsIn(std::string_view text)
{
    Configuration configuration;
    add(configuration, text, "f");
    Texts texts;
    for (const Problem& problem : configuration.problems) {
        texts.push_back(problemText(problem));
    }
    return texts;
}

Configuration configured(std::string_view text)
{
    Configuration configuration;
    add(configuration, text, "f");
    EXPECT_EQ(configuration.problems.size(), 0U) << problemText(configuration.problems.front());
    return configuration;
}

TEST(ReadConfiguration, hasTheDefaultsWithoutFiles)
{
    const TemporaryDirectory place;
    const Configuration configuration = read(place.path() / "quillmere");
    EXPECT_EQ(configuration.values, Values());
    EXPECT_TRUE(configuration.origins.empty());
    EXPECT_TRUE(configuration.problems.empty());
}

TEST(ReadConfiguration, readsNothingWhereTheEnvironmentNamesNoDirectory)
{
    EXPECT_EQ(read({}).values, Values());
}

TEST(ReadConfiguration, setsEveryKey)
{
    const Values values = configured(R"(
directory = "~/focus"
clock = "12h"
week-begins = "sunday"
day-begins = 4
daily-goal = "4h"
days-off = ["saturday", "sunday"]
block = { focus = "50m", break = "10m", cycles = 4 }
watch.hooks = ["one", "two"]
)")
                              .values;
    EXPECT_EQ(values, (Values{.focusSeconds = 3000,
                              .breakSeconds = 600,
                              .cycleCount = 4,
                              .templates = {},
                              .weekBegins = Weekday::sunday,
                              .dayBeginsAtHour = 4,
                              .dailyGoalSeconds = 14'400,
                              .daysOff = {Weekday::saturday, Weekday::sunday},
                              .hours = base::Hours::twelve,
                              .directory = "~/focus",
                              .hooks = {"one", "two"}}));
}

TEST(ReadConfiguration, knowsWhereEachValueStands)
{
    const Configuration configuration =
        configured("clock = '12h'\n\n[block]\n  cycles = 4\n[template.report]\nwhy = ''");
    EXPECT_EQ(configuration.origins.size(), 3U);
    EXPECT_EQ(configuration.origins.at("clock").place, (TextPlace{.line = 1, .column = 1}));
    EXPECT_EQ(configuration.origins.at("block.cycles").place, (TextPlace{.line = 4, .column = 3}));
    EXPECT_EQ(configuration.origins.at("template.report.why").place.line, 6);
}

TEST(ReadConfiguration, prefersThePersonsFileToThatOfPrograms)
{
    const TemporaryDirectory place;
    writeText(place.path() / "preferences.toml", "block = { focus = '30m', cycles = 2 }");
    writeText(place.path() / "config.toml", "block.focus = '50m'");
    const Configuration configuration = read(place.path());
    EXPECT_EQ(configuration.values.focusSeconds, 3000);
    EXPECT_EQ(configuration.values.cycleCount, 2);
    EXPECT_EQ(configuration.origins.at("block.focus").file, place.path() / "config.toml");
    EXPECT_EQ(configuration.origins.at("block.cycles").file, place.path() / "preferences.toml");
}

TEST(ReadConfiguration, takesWhatTheOtherFileSaysForAWrongValue)
{
    const TemporaryDirectory place;
    writeText(place.path() / "preferences.toml", "block.focus = '30m'");
    writeText(place.path() / "config.toml", "block.focus = 'long'");
    const Configuration configuration = read(place.path());
    EXPECT_EQ(configuration.values.focusSeconds, 1800);
    EXPECT_EQ(configuration.origins.at("block.focus").file, place.path() / "preferences.toml");
}

TEST(ReadConfiguration, saysWhatIsWrongWithAValueAndTakesTheOthers)
{
    const std::string text = "block.focus = '50m'\nblock.cycles = 0\n";
    Configuration configuration;
    add(configuration, text, "f");
    EXPECT_EQ(configuration.values.focusSeconds, 3000);
    EXPECT_EQ(configuration.values.cycleCount, Values().cycleCount);
    EXPECT_EQ(problemsIn(text),
              Texts{"f:2:16: block.cycles must be a whole number from 1 to 1000; it is left out."});
}

TEST(ReadConfiguration, namesTheKeysBesideAnUnknownOne)
{
    EXPECT_EQ(problemsIn("[block]\nfokus = 1"),
              Texts{"f:2:1: block.fokus is no key. The keys of [block] are focus, break, cycles."});
    EXPECT_EQ(
        problemsIn("[template.report]\nwhen = 1"),
        Texts{"f:2:1: template.report.when is no key. The keys of a template are outcome, why, done-test, "
              "hazards, check, notes, focus, break, cycles."});
    const Texts atTop = problemsIn("fokus = 1");
    ASSERT_EQ(atTop.size(), 1U);
    EXPECT_TRUE(atTop[0].starts_with("f:1:1: fokus is no key. The keys are directory, clock, ")) << atTop[0];
}

TEST(ReadConfiguration, wantsTablesWhereTablesAre)
{
    const std::pair<std::string, std::string> cases[] = {
        {"block = 4", "f:1:1: block is no key. The keys of [block] are focus, break, cycles."},
        {"[block.focus.long]",
         "f:1:14: block.focus.long is no key. The keys of [block] are focus, break, cycles."},
        {"template = 4", "f:1:1: template must be a table of its own, such as [template.report]."},
        {"template.report = 4",
         "f:1:10: template.report must be a table of its own, such as [template.report]."},
    };
    for (const auto& [text, problem] : cases) {
        EXPECT_EQ(problemsIn(text), Texts{problem});
    }
    for (const char* const empty : {"[block]", "[watch]", "[template]"}) {
        EXPECT_EQ(problemsIn(empty), Texts()) << empty;
    }
}

TEST(ReadConfiguration, leavesAFileOutThatIsNoToml)
{
    const Texts problems = problemsIn("clock = '12h'\nblock.focus = 50m\n");
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_TRUE(problems[0].starts_with("f:2:")) << problems[0];
    EXPECT_TRUE(problems[0].ends_with(" The whole file is left out.")) << problems[0];
    Configuration configuration;
    add(configuration, "clock = '12h'\nblock.focus = 50m\n", "f");
    EXPECT_EQ(configuration.values, Values());
}

TEST(ReadConfiguration, leavesAFileOutThatCannotBeRead)
{
    const TemporaryDirectory place;
    writeText(place.path() / "preferences.toml", "clock = '12h'");
    std::filesystem::create_directory(place.path() / "config.toml");
    const Configuration configuration = read(place.path());
    EXPECT_EQ(configuration.values.hours, base::Hours::twelve);
    ASSERT_EQ(configuration.problems.size(), 1U);
    EXPECT_EQ(problemText(configuration.problems[0]),
              (place.path() / "config.toml").string() + ": Is a directory. The file is left out.");
}

TEST(ReadConfiguration, leavesAVeryLargeFileOut)
{
    EXPECT_EQ(problemsIn("#" + std::string(65'536, '.')),
              Texts{"f: It is larger than 64 KiB. The file is left out."});
}

TEST(ReadConfiguration, readsTemplatesInTheOrderOfTheFile)
{
    const Values values = configured(
                              "[template.writing]\noutcome = 'A page'\nfocus = '50m'\n"
                              "[template.'of the week']\noutcome = ['Mail', 'Plan']\ncycles = 2\n")
                              .values;
    EXPECT_EQ(values.templates, (std::vector<Template>{
                                    {.name = "writing", .outcomes = {"A page"}, .focusSeconds = 3000},
                                    {.name = "of the week", .outcomes = {"Mail", "Plan"}, .cycleCount = 2},
                                }));
}

TEST(ReadConfiguration, takesNoTemplateByTheNameOfTheLastBlock)
{
    Configuration configuration;
    config::add(configuration, "[template.last]\nwhy = \"a\"\nfocus = \"25m\"\n", "config.toml");
    EXPECT_TRUE(configuration.values.templates.empty());
    ASSERT_EQ(configuration.problems.size(), 1u);
    EXPECT_EQ(config::problemText(configuration.problems.front()),
              "config.toml:2:1: template.last cannot be chosen, because plan --like last means the last "
              "block; give the template another name.");
}

TEST(ReadConfiguration, replacesATemplateOfProgramsAsAWhole)
{
    Configuration configuration;
    add(configuration, "[template.report]\nwhy = 'Why'\ncycles = 2", "programs");
    add(configuration, "[template.report]\ncycles = 3", "person");
    EXPECT_EQ(configuration.values.templates, (std::vector<Template>{{.name = "report", .cycleCount = 3}}));
    EXPECT_EQ(configuration.origins.at("template.report.cycles").file, "person");
}

TEST(ConfigurationDirectory, isNamedByTheEnvironment)
{
    const struct {
        std::optional<std::string> configHome;
        std::optional<std::string> home;
        std::filesystem::path directory;
    } cases[] = {
        {"/c", "/h", "/c/quillmere"},
        {"relative", "/h", "/h/.config/quillmere"},
        {std::nullopt, "/h", "/h/.config/quillmere"},
        {std::nullopt, "h", ""},
        {"", std::nullopt, ""},
    };
    for (const auto& each : cases) {
        const test::EnvironmentVariable configHome("XDG_CONFIG_HOME", each.configHome);
        const test::EnvironmentVariable home("HOME", each.home);
        EXPECT_EQ(directoryOfThisUser(), each.directory);
    }
}

TEST(ExpandedPath, hasTheHomeDirectoryForATilde)
{
    const test::EnvironmentVariable home("HOME", "/home/anna");
    EXPECT_EQ(expanded("~/focus"), "/home/anna/focus");
    EXPECT_EQ(expanded("/srv/~/focus"), "/srv/~/focus");
    EXPECT_EQ(expanded(""), "");
}

TEST(ExpandedPath, needsAHomeDirectory)
{
    const test::EnvironmentVariable home("HOME", std::nullopt);
    EXPECT_THROW(expanded("~/focus"), base::Refusal);
}

}  // namespace
}  // namespace quillmere::config
