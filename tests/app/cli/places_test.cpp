// The places of the files without --directory.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* group = "group-containers/T5Q2N84LW7.quillmere";

/// Expects the state in the directory for data and the widget's summary in the shared container.
void expectFilesBelow(const fs::path& support)
{
    EXPECT_EQ(namesIn(support / "Quillmere"), (Words{"agent-state.json", "state.json"}));
    EXPECT_EQ(namesIn(support / group), Words{std::string(WidgetSnapshotStore::fileName)});
    EXPECT_EQ(fs::status(support / "Quillmere").permissions(), fs::perms::owner_all);
}

TEST(Places, areBelowXdgDataHomeWhenItIsSet)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", (person.directory() / "data").string());
    const EnvironmentVariable home("HOME", (person.directory() / "home").string());
    EXPECT_EQ(person.runs({"ask", "Why?"}).code, ExitCode::done);
    expectFilesBelow(person.directory() / "data");
    EXPECT_EQ(person.names(), Words{"data"});
    EXPECT_EQ(person.runs({"questions"}).out.substr(0, 8), "1.  Why?");
}

TEST(Places, areBelowHomeOtherwise)
{
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
                              std::optional<std::string>("relative/data")}) {
        const Person person;
        const EnvironmentVariable data("XDG_DATA_HOME", value);
        const EnvironmentVariable home("HOME", person.directory().string());
        EXPECT_EQ(person.runs({"ask", "Why?"}).code, ExitCode::done);
        expectFilesBelow(person.directory() / ".local" / "share");
    }
}

TEST(Places, areNotCreatedByReading)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", (person.directory() / "data").string());
    for (const Words& words : {Words{}, Words{"status"}, Words{"widget"}, Words{"agent"}, Words{"history"}}) {
        EXPECT_EQ(person.runs(words).code, ExitCode::done);
    }
    EXPECT_EQ(person.names(), Words{});
}

TEST(Places, letTheWidgetReadItsContainerOnly)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", person.directory().string());
    EXPECT_EQ(person.runs({"plan", "--outcome", "Chapter", "--start"}).code, ExitCode::done);
    fs::remove(person.directory() / "Quillmere" / "state.json");
    EXPECT_NE(person.runs({"widget"}).out.find("Outcome: Chapter\n"), std::string::npos);
    fs::remove(person.directory() / group / WidgetSnapshotStore::fileName);
    EXPECT_EQ(person.runs({"widget"}).out.substr(0, 22), "Idle  No active block\n");
}

TEST(Places, areUsedOnlyWhenAllFilesHaveOne)
{
    const Person person;
    const EnvironmentVariable data("XDG_DATA_HOME", person.directory().string());
    writeText(person.directory() / "group-containers", "a file in the way");
    EXPECT_EQ(person.runs({"ask", "Why?"}).code, ExitCode::fileError);
    EXPECT_EQ(namesIn(person.directory() / "Quillmere"), Words{});
}

TEST(Places, areAnErrorWithoutHome)
{
    for (const auto& value : {std::optional<std::string>(), std::optional<std::string>(""),
                              std::optional<std::string>("relative/home")}) {
        const Person person;
        const CurrentDirectory here(person.directory());
        const EnvironmentVariable data("XDG_DATA_HOME", std::nullopt);
        const EnvironmentVariable home("HOME", value);
        for (const Words& words : {Words{}, Words{"status"}, Words{"widget"}, Words{"ask", "Why?"}}) {
            const Ending ending = person.runs(words);
            EXPECT_EQ(ending.code, ExitCode::fileError);
            EXPECT_EQ(ending.err,
                      "No directory for the files is known: set HOME, or XDG_DATA_HOME, to an absolute path, "
                      "or use --directory.\n");
        }
        EXPECT_EQ(person.names(), Words{});
        EXPECT_EQ(person.runs({"open", "quillmere://open/focus"}).code, ExitCode::done);
        EXPECT_EQ(person.types({"ask", "Why?"}).code, ExitCode::done);
    }
}

}  // namespace
}  // namespace quillmere::test
