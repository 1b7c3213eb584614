// The command: its page, its JSON, its exit code; and the checks of the real program where system calls fail.
#include <algorithm>

#include "doctor_testing.hpp"
#include "real_program.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

TEST(DoctorCommand, exitsWith0AndChangesNothingWhenNothingIsWrong)
{
    const Person person = personWithPrivateFiles();
    auto before = pictureOf(person.directory());
    const Ending ending = person.types({"doctor"});
    EXPECT_EQ(ending.code, ExitCode::done) << ending.out;
    EXPECT_EQ(ending.err, "");
    auto after = pictureOf(person.directory());
    // The directory itself is changed by files that are made and removed.
    before.erase(".");
    after.erase(".");
    EXPECT_EQ(after, before);
    EXPECT_EQ(namesIn(person.stateHome()), Words{});
}

TEST(DoctorCommand, exitsWith1WhenSomethingIsWrong)
{
    const Person person = personWithPrivateFiles();
    writeText(person.store().stateURL(), "spoilt");
    const Ending ending = person.types({"doctor"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.out.rfind("    1 thing is wrong.\n\n", 0), 0U) << ending.out;
    EXPECT_NE(ending.out.find("\n    wrong  State        The state cannot be used: "), std::string::npos)
        << ending.out;
    EXPECT_NE(ending.out.find("\n                        $ quillmere --directory " +
                              person.directory().string() + " restore\n"),
              std::string::npos)
        << ending.out;
}

TEST(DoctorCommand, saysTheSameToPrograms)
{
    const Person person = personWithPrivateFiles();
    writeText(person.store().stateURL(), "spoilt");
    const Ending ending = person.types({"doctor", "--json"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(jsonAt("/verdict", ending.out), "\"wrong\"");
    EXPECT_EQ(jsonAt("/checks/0/check", ending.out), "\"directory\"");
    EXPECT_EQ(jsonAt("/checks/4/check", ending.out), "\"state\"");
    EXPECT_EQ(jsonAt("/checks/4/verdict", ending.out), "\"wrong\"");
    EXPECT_EQ(jsonAt("/checks/4/remedy", ending.out), "\"Bring an earlier version back.\"");
    EXPECT_EQ(jsonAt("/checks/3/remedy", ending.out), "null");
}

TEST(DoctorCommand, worksWithoutADirectoryAndMakesNone)
{
    const TemporaryDirectory above;
    const std::string missing = (above.path() / "missing").string();
    const Ending ending = Person().runs({"--directory", missing, "doctor"});
    EXPECT_EQ(ending.code, ExitCode::done);
    EXPECT_EQ(ending.out.rfind("    Nothing is wrong; 1 thing to look at.\n\n    look   Directory    ", 0),
              0U)
        << ending.out;
    EXPECT_EQ(above.names(), Words{});
}

TEST(DoctorCommand, saysThatNoDirectoryIsKnown)
{
    const EnvironmentVariable home("HOME", std::nullopt);
    const EnvironmentVariable dataHome("XDG_DATA_HOME", std::nullopt);
    const Ending ending = Person().runs({"doctor", "--json"});
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(jsonAt("/checks/0/verdict", ending.out), "\"wrong\"");
    EXPECT_NE(jsonAt("/checks/0/finding", ending.out).find("set HOME"), std::string::npos);
}

TEST(DoctorCommand, letsNoPathControlTheTerminal)
{
    const TemporaryDirectory above;
    const std::string hostile = (above.path() / "\x1b[31mred").string();
    EXPECT_EQ(Person().runs({"--directory", hostile, "doctor"}).out.find('\x1b'), std::string::npos);
}

TEST(DoctorCommand, breaksTextsAtTheWidthOfTheTerminalAndNoCommandLine)
{
    const EnvironmentVariable width("COLUMNS", "60");
    const EnvironmentVariable plain("NO_COLOR", "1");
    Person person = personWithPrivateFiles();
    person.seesColour = true;
    fs::permissions(person.store().stateURL(), fs::perms(0644));
    std::istringstream lines(person.types({"doctor"}).out);
    bool hasCommand = false;
    for (std::string line; std::getline(lines, line);) {
        const bool isCommand = line.find("$ chmod 600 ") != std::string::npos;
        EXPECT_TRUE(isCommand || line.size() <= 60) << line;
        EXPECT_TRUE(!isCommand || line.ends_with(person.store().stateURL().string())) << line;
        hasCommand = hasCommand || isCommand;
    }
    EXPECT_TRUE(hasCommand);
}

/// A call that fails in the real program, and what becomes of the check.
struct FailingCall {
    std::string injection;  ///< for strace: the call, its error, and which of its calls fails
    std::string check;
    std::string verdict;
    std::string finding;  ///< a part of it
};

const FailingCall failingCalls[] = {
    {"inotify_init1:error=EMFILE", "inotify", "look", "Too many open files"},
    {"inotify_add_watch:error=ENOSPC", "inotify", "look", "No space left on device"},
    {"flock:error=ENOLCK", "lock", "look", "lock state.json instead"},
    {"flock,fcntl:error=ENOLCK", "lock", "wrong", "Changes are refused"},
    {"fsync:error=EIO:when=1", "sync", "wrong", "A file cannot be synced"},
    {"fsync:error=EINVAL:when=2", "sync", "look", "not offered here"},
    {"rename:error=EPERM", "replace", "wrong", "Operation not permitted"},
    {"link:error=EPERM", "hard_links", "look", "versions are copied"},
    {"?statfs:error=EIO", "directory", "wrong", "cannot be examined: statfs"},
};

/// The check in the program's JSON, as one line.
std::string checkIn(const std::string& out, const std::string& name)
{
    for (int index = 0; index < 16; ++index) {
        const std::string place = "/checks/" + std::to_string(index);
        if (jsonAt(place + "/check", out) == '"' + name + '"') {
            return jsonAt(place + "/verdict", out) + ": " + jsonAt(place + "/finding", out);
        }
    }
    ADD_FAILURE() << "there is no check " << name << " in " << out;
    return {};
}

TEST(DoctorCommand, findsEverySystemCallThatFails)
{
    if (!canTrace()) {
        GTEST_SKIP() << cannotTrace;
    }
    const Person person = personWithPrivateFiles();
    const Words before = person.names();
    for (const FailingCall& call : failingCalls) {
        SCOPED_TRACE(call.injection);
        const std::string calls = call.injection.substr(0, call.injection.find(':'));
        ProcessOptions options =
            traced(realProgram({"--directory", person.directory().string(), "doctor", "--json"}),
                   {"-f", "-o", "/dev/null", "-e", "trace=" + calls, "-e", "inject=" + call.injection});
        options.environment["XDG_STATE_HOME"] = person.stateHome().string();
        const ProcessEnding ending = run(options);
        EXPECT_EQ(ending.code, call.verdict == "wrong" ? 1 : 0);
        const std::string check = checkIn(ending.out, call.check);
        EXPECT_EQ(check.rfind('"' + call.verdict + "\":", 0), 0U) << check;
        EXPECT_NE(check.find(call.finding), std::string::npos) << check;
        EXPECT_EQ(person.names(), before);
    }
}

}  // namespace
}  // namespace quillmere::test
