// Showing, setting and editing the configuration.
#include "config/configuration.hpp"

#include "program_testing.hpp"
#include "support/process_settings.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

class Config : public testing::Test {
protected:
    Config() { person.configDirectory = place.path() / "quillmere"; }

    const TemporaryDirectory place;
    Person person;
    // No editor of the machine that runs the tests.
    const EnvironmentVariable visual{"VISUAL", std::nullopt};
    const EnvironmentVariable editor{"EDITOR", std::nullopt};

    std::filesystem::path file() const { return person.configDirectory / "config.toml"; }
    void has(const std::string& text) const
    {
        std::filesystem::create_directories(person.configDirectory);
        writeText(file(), text);
    }
    Ending shows() const { return person.types({"config"}); }
    /// Edits by a command of the shell, which the path of the file is appended to.
    Ending editsBy(const std::string& command) const
    {
        const EnvironmentVariable chosen("EDITOR", command);
        return person.types({"config", "--edit"});
    }
};

/// The line that begins so; empty when there is none.
std::string lineWith(const std::string& beginning, const std::string& text)
{
    const std::size_t begin = ("\n" + text).find("\n" + beginning);
    return begin == std::string::npos ? "" : text.substr(begin, text.find('\n', begin) - begin);
}

TEST_F(Config, showsEachValueAndWhereItComesFrom)
{
    has("\nblock.focus = '50m'\n");
    writeText(person.configDirectory / "preferences.toml", "clock = '12h'");
    const Ending ending = shows();
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(lineWith("block.focus", ending.out),
              "block.focus = \"50m\"                       # config.toml, line 2");
    EXPECT_EQ(lineWith("clock", ending.out),
              "clock = \"12h\"                             # preferences.toml, line 1");
    EXPECT_EQ(lineWith("block.break", ending.out), "block.break = \"5m\"                        # default");
    EXPECT_EQ(lineWith("# daily-goal", ending.out), "# daily-goal is not set                   # default");
}

TEST_F(Config, namesItsFilesWhetherOrNotTheyExist)
{
    has("");
    const std::string out = shows().out;
    EXPECT_EQ(lineWith("# " + file().string(), out),
              "# " + file().string() + ": yours, no program writes it");
    EXPECT_TRUE(lineWith("# " + (person.configDirectory / "preferences.toml").string(), out)
                    .ends_with("there is none"))
        << out;
}

TEST_F(Config, printsLinesThatSetTheSameValues)
{
    has("days-off = ['sunday']\nwatch.hooks = ['echo \"$1\"']\n[template.'of the week']\nwhy = 'Mail\\and "
        "plan'\n"
        "outcome = ['One', 'Two']\ncycles = 2");
    config::Configuration first = config::read(person.configDirectory);
    ASSERT_EQ(first.problems.size(), 0U);
    config::Configuration second;
    config::add(second, shows().out, "again");
    EXPECT_EQ(second.problems.size(), 0U);
    EXPECT_EQ(second.values, first.values);
    EXPECT_EQ(second.values.templates.size(), 1U);
}

TEST_F(Config, saysWhatIsWrongAndIsNoFailure)
{
    has("block.focus = 'long'");
    const Ending ending = shows();
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.err, file().string() +
                              ":1:15: block.focus must be a duration from 1 s to 366 d, such as "
                              "\"25m\" or \"1h30m\"; it is left out.\n");
    EXPECT_NE(lineWith("block.focus = \"25m\"", ending.out), "");
}

TEST_F(Config, keepsControlCharactersFromTheTerminal)
{
    has("\"\\u001b[31m\" = 1\n[template.\"\\u202e\"]\nwhy = '1'");
    const Ending ending = shows();
    EXPECT_EQ((ending.out + ending.err).find('\x1b'), std::string::npos);
    EXPECT_EQ((ending.out + ending.err).find("\u202e"), std::string::npos);
}

TEST_F(Config, printsJsonWithOriginsAndProblems)
{
    has("clock = '12h'\nblock.cycles = 0");
    const Ending ending = person.types({"config", "--json"});
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(jsonAt("/values/1", ending.out), R"({"key":"clock","origin":{"column":1,"file":")" +
                                                   file().string() + R"(","line":1},"value":"\"12h\""})");
    EXPECT_EQ(jsonAt("/values/0/origin", ending.out), "null");
    EXPECT_EQ(jsonAt("/values/0/value", ending.out), "null");
    EXPECT_EQ(jsonAt("/problems/0/line", ending.out), "2");
    EXPECT_EQ(jsonAt("/problems/0/column", ending.out), "16");
}

TEST_F(Config, printsAValueAlone)
{
    has("block.focus = '90'\ndays-off = ['sunday']\n[template.'of the week']\nwhy = 'Mail'\n");
    const std::pair<std::string, std::string> cases[] = {
        {"block.focus", "1h30m\n"},     {"block.cycles", "8\n"}, {"sound", "true\n"},
        {"days-off", "[\"sunday\"]\n"}, {"clock", "24h\n"},      {"template.\"of the week\".why", "Mail\n"},
    };
    for (const auto& [key, value] : cases) {
        const Ending ending = person.types({"config", key});
        EXPECT_EQ(ending.out, value) << key;
        EXPECT_EQ(ending.code, ExitCode::done) << key;
    }
    EXPECT_EQ(jsonAt("/value", person.types({"config", "block.focus", "--json"}).out), R"("\"1h30m\"")");
}

TEST_F(Config, saysWhenAKeyHasNoValue)
{
    const Ending ending = person.types({"config", "daily-goal"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, "daily-goal is not set.\n");
    EXPECT_EQ(jsonAt("/value", person.types({"config", "daily-goal", "--json"}).out), "null");
    EXPECT_EQ(person.types({"config", "fokus"}).code, ExitCode::usage);
}

TEST_F(Config, setsAndUnsetsAValueInTheFileOfPrograms)
{
    EXPECT_EQ(person.types({"config", "block.focus", "90"}).out, "block.focus is \"1h30m\".\n");
    EXPECT_EQ(person.types({"config", "reminders", "[]"}).out, "reminders is [].\n");
    EXPECT_EQ(config::read(person.configDirectory).values.focusSeconds, 5400);
    EXPECT_FALSE(std::filesystem::exists(file()));
    EXPECT_EQ(jsonAt("/origin/file", person.types({"config", "clock", "12h", "--json"}).out),
              '"' + (person.configDirectory / "preferences.toml").string() + '"');
    EXPECT_EQ(person.types({"config", "--unset", "block.focus"}).out,
              "block.focus is \"25m\", the default.\n");
    EXPECT_EQ(config::read(person.configDirectory).values.hours, base::Hours::twelve);
}

TEST_F(Config, saysThatThePersonsFileWins)
{
    has("clock = '24h'\nsound = 3\n");
    const Ending ending = person.types({"config", "clock", "12h"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out,
              "config.toml says in line 1 that clock is \"24h\", and wins; edit it with quillmere config "
              "--edit.\n");
    EXPECT_EQ(ending.err, file().string() + ":2:9: sound must be true or false; it is left out.\n");
    EXPECT_EQ(textOf(file()), "clock = '24h'\nsound = 3\n");
}

TEST_F(Config, refusesAValueWithTheCodeOfAWrongLine)
{
    const Ending ending = person.types({"config", "clock", "13h"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err, "clock must be one of \"12h\", \"24h\".\n");
    EXPECT_EQ(person.types({"config", "watch.hooks", "echo"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"config", "--unset"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"config", "--unset", "clock", "12h"}).code, ExitCode::usage);
    EXPECT_EQ(person.types({"config", "--edit", "clock"}).code, ExitCode::usage);
}

TEST_F(Config, opensTheFileInTheEditor)
{
    const Ending ending = editsBy("printf \"block.focus = '50m'\" >");
    EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
    EXPECT_EQ(ending.out, "The configuration can be used as it is.\n");
    EXPECT_EQ(textOf(file()), "block.focus = '50m'");
}

TEST_F(Config, prefersTheVisualEditor)
{
    const EnvironmentVariable chosen("VISUAL", "touch");
    EXPECT_EQ(editsBy("false").code, ExitCode::done);
    EXPECT_TRUE(std::filesystem::exists(file()));
}

TEST_F(Config, checksTheFileAfterTheEditor)
{
    const Ending ending = editsBy("printf 'clock = 3' >");
    EXPECT_EQ(ending.err, file().string() + ":1:9: clock must be one of \"12h\", \"24h\"; it is left out.\n");
    EXPECT_EQ(ending.out, "");
}

TEST_F(Config, saysWhenTheEditorFails)
{
    const Ending ending = editsBy("exit 3;");
    EXPECT_EQ(ending.code, ExitCode::fileError);
    EXPECT_EQ(ending.err, "The editor, exit 3;: it ended with 3.\n");
}

TEST_F(Config, needsAnEditor)
{
    const Ending ending = person.types({"config", "--edit"});
    EXPECT_EQ(ending.code, ExitCode::usage);
    EXPECT_EQ(ending.err,
              "Neither VISUAL nor EDITOR names an editor. Set one, or edit " + file().string() + ".\n");
}

TEST_F(Config, hasNoFileWithoutADirectory)
{
    person.configDirectory.clear();
    EXPECT_EQ(shows().code, ExitCode::done);
    EXPECT_EQ(person.types({"config", "--edit"}).code, ExitCode::fileError);
    EXPECT_EQ(person.types({"config", "clock", "12h"}).code, ExitCode::fileError);
}

}  // namespace
}  // namespace quillmere::test
