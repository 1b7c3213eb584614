// Behaviour that needs a real process: standard descriptors, exit codes from main, the wall clock.
#include <sys/resource.h>
#include <time.h>

#include <filesystem>
#include <string>

#include "real_program.hpp"

namespace quillmere::test {
namespace {

ProcessEnding ran(const Person& person, const Words& words, const Channels& channels = {})
{
    Words all = {"--directory", person.directory().string()};
    all.insert(all.end(), words.begin(), words.end());
    return runProgram(all, channels);
}

TEST(RealProgram, endsWith0WhenDone)
{
    const Person person;
    const ProcessEnding ending = ran(person, {"plan", "--outcome", "Chapter", "--start"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out,
              "The block has begun.\n\nPlanning  Plan the next session\n\nThe block\n  Outcome  Chapter\n\n"
              "Next: focus, now, cancel, change\n");
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(RealProgram, endsWith74WhenTheResultCannotBeWritten)
{
    const Person person;
    const ProcessEnding ending = ran(person, {"ask", "Why?"}, {.out = fullDevice()});
    EXPECT_EQ(ending.code, 74);
    EXPECT_EQ(ending.err, "The result cannot be written to standard output; the command was carried out.\n");
    EXPECT_EQ(person.state().agentQuestions.size(), 1u);
    const ProcessEnding look = ran(person, {"status"}, {.out = fullDevice()});
    EXPECT_EQ(look.code, 74);
    EXPECT_EQ(look.err, "The result cannot be written to standard output.\n");
    EXPECT_EQ(ran(person, {"history", "--json"}, {.out = fullDevice()}).code, 74);
    EXPECT_EQ(ran(person, {"--help"}, {.out = fullDevice()}).code, 74);
    EXPECT_EQ(ran(person, {"--version"}, {.out = fullDevice()}).code, 74);
}

TEST(ClosedChannel, doesNoHarm)
{
    // Files that the program opens would get the numbers of the standard descriptors.
    const Person person;
    EXPECT_EQ(ran(person, {"ask", "First?"}, {.in = Channel::closed()}).code, 0);
    EXPECT_EQ(ran(person, {"ask", "Second?"}, {.out = Channel::closed()}).code, 74);
    EXPECT_EQ(ran(person, {"ask", "Third?"}, {.err = Channel::closed()}).code, 0);
    EXPECT_EQ(ran(person, {"ask", "Fourth?"}, noChannels()).code, 74);
    EXPECT_EQ(ran(person, {"pause"}, noChannels()).code, 1);
    EXPECT_EQ(ran(person, {"plan"}, {.in = Channel::closed()}).code, 2);
    EXPECT_EQ(person.state().agentQuestions.size(), 4u);
    EXPECT_EQ(person.names().size(), 3u);
    EXPECT_EQ(ran(person, {"questions"}, {.in = Channel::closed(), .err = Channel::closed()}).code, 0);
}

TEST(FullErrorChannel, changesNoExitCode)
{
    const Person person;
    EXPECT_EQ(ran(person, {"pause"}, {.err = fullDevice()}).code, 1);
    EXPECT_EQ(ran(person, {"ask", "Why?"}, {.err = fullDevice()}).code, 0);
}

TEST(RealProgram, endsWith74AndLeavesTheFilesWhenOneWouldBeTooLarge)
{
    const Person person;
    person.has(fullState());
    ProcessOptions options = realProgram({"--directory", person.directory().string(), "ask", "Why?"});
    options.environment["XDG_STATE_HOME"] = person.stateHome().string();
    options.inChild = [] {
        const rlimit tooSmall{.rlim_cur = 100, .rlim_max = 100};
        ::setrlimit(RLIMIT_FSIZE, &tooSmall);
    };
    const ProcessEnding ending = run(options);
    EXPECT_EQ(ending.code, 74);
    EXPECT_NE(ending.err.find("File too large"), std::string::npos) << ending.err;
    EXPECT_EQ(person.names(), (Words{"agent-state.json", "state.json", "widget-snapshot.json"}));
    EXPECT_TRUE(person.state() == fullState());
    for (const auto& entry : std::filesystem::recursive_directory_iterator(person.stateHome())) {
        EXPECT_FALSE(entry.is_regular_file()) << entry.path();
    }
}

TEST(RealProgram, takesTheWallClock)
{
    const Person person;
    const double before = static_cast<double>(::time(nullptr));
    EXPECT_EQ(ran(person, {"ask", "Why?"}).code, 0);
    const double after = static_cast<double>(::time(nullptr));
    const double asked = person.state().agentQuestions.at(0).createdAt.secondsSince1970();
    EXPECT_GE(asked, before);
    EXPECT_LE(asked, after);
}

TEST(RealProgram, asksNothingWithoutATerminal)
{
    const Person person;
    EXPECT_EQ(ran(person, {"plan", "--start"}).err, "");
    EXPECT_EQ(ran(person, {"focus"}).err, "Save a session plan before focus starts. Give --outcome TEXT.\n");
}

}  // namespace
}  // namespace quillmere::test
