// How the arguments are parsed: global options, directories, misuse, help.
#include "cli/whole_command_line.hpp"

namespace quillmere::test {
namespace {

TEST(GlobalOptions, mayStandBeforeAndBehindTheCommand)
{
    const Person person;
    const std::string directory = person.directory().string();
    const Words lines[] = {
        {"--directory", directory, "--json", "ask", "Why?"},
        {"--json", "ask", "--directory", directory, "Why?"},
        {"ask", "Why?", "--json", "--directory", directory},
        {"ask", "--directory=" + directory, "--json", "--", "Why?"},
    };
    std::size_t count = 0;
    for (const Words& line : lines) {
        const Ending ending = person.runs(line);
        EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
        EXPECT_EQ(jsonAt("/events", ending.out), "[]");
        EXPECT_EQ(person.state().agentQuestions.size(), ++count);
    }
}

TEST(GlobalOptions, mayStandAnywhereAroundACommandOfTwoWords)
{
    const Person person;
    const std::string directory = person.directory().string();
    person.has(stateIn(WorkflowState::breaking));
    const Words lines[] = {
        {"--directory", directory, "--json", "break", "extend", "1m"},
        {"break", "--directory", directory, "--json", "extend", "1m"},
        {"break", "extend", "--directory", directory, "1m", "--json"},
    };
    double extension = 0;
    for (const Words& line : lines) {
        const Ending ending = person.runs(line);
        EXPECT_EQ(ending.code, ExitCode::done) << ending.err;
        EXPECT_EQ(jsonAt("/events", ending.out), "[]");
        EXPECT_EQ(person.state().breakExtensionSeconds, extension += 60);
    }
}

TEST(NamedCommands, areTheSameAsAmongAll)
{
    WholeCommandLine all;
    for (const CLI::App* const command : all.line.get_subcommands(nullptr)) {
        CLI::App named;
        const std::string name = command->get_name();
        const bool looksAtAll = name == "help" || name == "complete";
        ASSERT_NE(cli::defineNamedCommands(named, all.program, {name}), looksAtAll) << name;
        if (!looksAtAll) {
            ASSERT_EQ(named.get_subcommands(nullptr).size(), 1u) << name;
            EXPECT_EQ(named.get_subcommands(nullptr).front()->get_name(), name);
        }
    }
}

TEST(NamedCommands, areNotEnoughForWhatIsSaidOfAMisspeltOption)
{
    const Person person;
    EXPECT_EQ(person.types({"status", "--jsn"}).code, ExitCode::usage);
    EXPECT_NE(person.types({"status", "--jsn"}).err.find("Did you mean --json?"), std::string::npos);
}

TEST(Directory, mayBeRelativeOrHaveASlashAtItsEnd)
{
    const Person person;
    const CurrentDirectory here(person.directory());
    for (const char* directory : {".", "slash/", "with space", "a/b/c", "a/b/../d"}) {
        SCOPED_TRACE(directory);
        EXPECT_EQ(person.runs({"--directory", directory, "ask", "Why?"}).code, ExitCode::done);
        EXPECT_EQ(StateStore(directory, StateStore::renameReplacing).load().agentQuestions.size(), 1u);
    }
    EXPECT_EQ(namesIn("a"), (Words{"b", "d"}));
}

TEST(Directory, isCreatedForTheOwnerOnly)
{
    const Person person;
    const auto inner = person.directory() / "some" / "where";
    EXPECT_EQ(person.runs({"--directory", inner.string(), "ask", "Why?"}).code, ExitCode::done);
    EXPECT_EQ(std::filesystem::status(inner).permissions(), std::filesystem::perms::owner_all);
    EXPECT_EQ(namesIn(inner),
              (Words{"agent-state.json", "state.json", std::string(WidgetSnapshotStore::fileName)}));
}

TEST(Directory, mayBeALinkToOne)
{
    const Person person;
    std::filesystem::create_directory(person.directory() / "real");
    std::filesystem::create_directory_symlink("real", person.directory() / "link");
    EXPECT_EQ(person.runs({"--directory", (person.directory() / "link").string(), "ask", "Why?"}).code,
              ExitCode::done);
    EXPECT_EQ(namesIn(person.directory() / "real").size(), 3u);
    EXPECT_TRUE(std::filesystem::is_symlink(person.directory() / "link"));
}

TEST(Directory, isResolvedBehindALinkAsTheSystemDoes)
{
    // After the link, ".." leads to the parent of the real directory.
    const Person person;
    std::filesystem::create_directories(person.directory() / "far" / "real");
    std::filesystem::create_directory_symlink("far/real", person.directory() / "link");
    EXPECT_EQ(
        person.runs({"--directory", (person.directory() / "link/../kept").string(), "ask", "Why?"}).code,
        ExitCode::done);
    EXPECT_EQ(namesIn(person.directory() / "far"), (Words{"kept", "real"}));
    EXPECT_EQ(person.names(), (Words{"far", "link"}));
}

TEST(Directory, isCreatedForTheOwnerOnlyAlsoWithADotAtItsEnd)
{
    const Person person;
    for (const char* name : {"one/.", "two/./", "three//"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(person.runs({"--directory", person.directory().string() + "/" + name, "ask", "Why?"}).code,
                  ExitCode::done);
    }
    for (const std::string& name : person.names()) {
        EXPECT_EQ(std::filesystem::status(person.directory() / name).permissions(),
                  std::filesystem::perms::owner_all);
    }
}

const Words misunderstood[] = {
    {"dance"},
    {"status", "quickly"},
    {"status", "ask"},
    {"--fast"},
    {"status", "--fast"},
    {"plan", "--outcome"},
    {"focus", "--energy"},
    {"ask"},
    {"pause", "now"},
    {"--directory"},
    {"--directory", "", "status"},
    {"plan", "--start", "--focus", "1m", "--focus", "2m"},
    {"history", "--limit"},
    {"-x"},
};

TEST(CommandLine, thatIsNotUnderstoodIsAUsageError)
{
    const Person person;
    for (const Words& words : misunderstood) {
        SCOPED_TRACE(testing::PrintToString(words));
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.out, "");
        EXPECT_TRUE(ending.err.ends_with("--help)\n")) << ending.err;
    }
    EXPECT_EQ(person.names(), Words{});
}

TEST(CommandLine, thatIsNotUnderstoodIsReportedAsJsonToo)
{
    const Person person;
    for (const Words& words : misunderstood) {
        SCOPED_TRACE(testing::PrintToString(words));
        Words line = {"--json"};
        line.insert(line.end(), words.begin(), words.end());
        const Ending ending = person.runs(line);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.out, "");
        EXPECT_EQ(jsonAt("/error/case", ending.err), R"("usage")");
    }
}

TEST(CommandLine, takesAnEmptyTextBehindAnEqualsSign)
{
    // As in a script: --why="$WHY" with an empty variable.
    const Person person;
    person.types({"plan", "--at", "+1h", "--why", "A deadline"});
    EXPECT_EQ(person.types({"edit", "--why="}).code, ExitCode::done);
    EXPECT_EQ(person.state().currentBlock->whyValue, "");
}

const Words illFormed[] = {
    {"ask", "\xFF"},
    {"ask", "half a character \xE2\x82"},
    {"ask", "a surrogate \xED\xA0\x80"},
    {"answer", "1", "\xC0\xAF"},
    {"answer", "\x80", "Yes"},
    {"plan", "--start", "--outcome", "fine", "--outcome", "\xFF"},
    {"plan", "--start", "--why", "\xFF"},
    {"plan", "--start", "--done-test", "\xFF"},
    {"plan", "--start", "--hazards", "\xFF"},
    {"plan", "--start", "--check", "\xFF"},
    {"plan", "--start", "--notes", "\xFF"},
    {"plan", "--start", "--focus", "\xFF"},
    {"plan", "--start", "--break", "\xFF"},
    {"plan", "--start", "--cycles", "\xFF"},
    {"plan", "--at", "\xFF"},
    {"focus", "--outcome", "\xFF"},
    {"focus", "--first-action", "\xFF"},
    {"focus", "--hazards", "\xFF"},
    {"focus", "--framing", "\xFF"},
    {"review", "--completion", "\xFF"},
    {"review", "--completion", "yes", "--result", "\xFF"},
    {"review", "--completion", "yes", "--distractions", "\xFF"},
    {"review", "--completion", "yes", "--improvement", "\xFF"},
    {"review", "--completion", "yes", "--next-outcome", "\xFF"},
    {"review", "--completion", "yes", "--next-first-action", "\xFF"},
    {"review", "--completion", "yes", "--next-hazards", "\xFF"},
    {"review", "--completion", "yes", "--next-framing", "\xFF"},
    {"break", "extend", "\xFF"},
    {"reflect", "--output", "\xFF"},
    {"reflect", "--comparison", "\xFF"},
    {"reflect", "--bogged-down", "\xFF"},
    {"reflect", "--went-well", "\xFF"},
    {"reflect", "--lessons", "\xFF"},
    {"open", "\xFF"},
    {"\xFF"},
    {"--\xFF"},
};

TEST(CommandLine, refusesBytesThatAreNotUtf8)
{
    const Person person;
    for (const Words& words : illFormed) {
        SCOPED_TRACE(testing::PrintToString(words));
        const Ending ending = person.types(words);
        EXPECT_EQ(ending.code, ExitCode::usage);
        EXPECT_EQ(ending.out, "");
        EXPECT_NE(ending.err, "");
        EXPECT_EQ(ending.err.find('\xFF'), std::string::npos);
    }
    EXPECT_EQ(person.names(), Words{});
}

TEST(Help, isPrintedForTheProgramAndForEveryCommand)
{
    const Person person;
    const std::string program = person.runs({"--help"}).out;
    for (const char* command :
         {"status", "plan",   "start",  "edit",    "cancel", "focus",     "pause",  "resume",
          "end",    "review", "break",  "reflect", "ask",    "questions", "answer", "history",
          "widget", "agent",  "open",   "tick",    "tour",   "ui",        "doctor", "extend",
          "away",   "finish", "change", "amend",   "delete", "reset",     "config"}) {
        SCOPED_TRACE(command);
        EXPECT_NE(program.find("\n  " + std::string(command) + " "), std::string::npos);
        const Ending ending = person.runs({command, "--help"});
        EXPECT_EQ(ending.code, ExitCode::done);
        EXPECT_NE(ending.out.find("Usage:"), std::string::npos);
        EXPECT_EQ(ending.err, "");
    }
}

TEST(Version, isPrinted)
{
    const Ending ending = Person().runs({"--version"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out.substr(0, 10), "quillmere ");
    EXPECT_EQ(ending.out.back(), '\n');
}

}  // namespace
}  // namespace quillmere::test
