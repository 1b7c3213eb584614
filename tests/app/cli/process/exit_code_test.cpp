// How the real program ends.
#include <fcntl.h>
#include <sys/file.h>
#include <time.h>

#include <algorithm>

#include "real_program.hpp"

namespace quillmere::test {
namespace {

ProcessEnding ran(const Person& person, const Words& words, const Channels& channels = {})
{
    Words all = {"--directory", person.directory().string()};
    all.insert(all.end(), words.begin(), words.end());
    return runProgram(all, channels);
}

TEST(ExitCode, is0WhenAllIsDone)
{
    const Person person;
    const ProcessEnding ending = ran(person, {"plan", "--outcome", "Chapter", "--start"});
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out,
              "The block has begun.\n\nPlanning  Plan the next session\nOutcome: Chapter\nNext: focus\n");
    EXPECT_EQ(ending.err, "");
    EXPECT_EQ(person.state().workflowState, WorkflowState::sessionPlanning);
}

TEST(ExitCode, is1WhenTheEngineRefuses)
{
    const Person person;
    const ProcessEnding ending = ran(person, {"pause"});
    EXPECT_EQ(ending.code, 1);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, "This action is not available in the current workflow state.\n");
}

TEST(ExitCode, is2WhenTheCommandLineIsNotUnderstood)
{
    const Person person;
    EXPECT_EQ(ran(person, {"dance"}).code, 2);
    EXPECT_EQ(ran(person, {"plan", "--focus", "367d", "--start"}).code, 2);
    EXPECT_EQ(ran(person, {"ask", "\xFF"}).code, 2);
}

TEST(ExitCode, is65WhenTheStateCannotBeUsed)
{
    const Person person;
    writeText(person.store().stateURL(), "{}");
    EXPECT_EQ(ran(person, {"ask", "Why?"}).code, 65);
    EXPECT_EQ(textOf(person.store().stateURL()), "{}");
    person.has(stateIn(WorkflowState::focusing));
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"planned_duration_seconds\" : 1500",
                       "\"planned_duration_seconds\" : 1e300"));
    EXPECT_EQ(ran(person, {}).code, 65);
}

TEST(ExitCode, is74WhenTheSystemRefuses)
{
    const Person person;
    std::filesystem::create_directory(person.store().stateURL());
    EXPECT_EQ(ran(person, {"ask", "Why?"}).code, 74);
}

TEST(ExitCode, is74WhenTheResultCannotBeWrittenThoughItIsSaved)
{
    const Person person;
    const ProcessEnding ending = ran(person, {"ask", "Why?"}, {.out = fullDevice()});
    EXPECT_EQ(ending.code, 74);
    EXPECT_EQ(ending.err, "The result cannot be written to standard output; what was asked has been done.\n");
    EXPECT_EQ(person.state().agentQuestions.size(), 1u);
    const ProcessEnding look = ran(person, {"status"}, {.out = fullDevice()});
    EXPECT_EQ(look.code, 74);
    EXPECT_EQ(look.err, "The result cannot be written to standard output.\n");
    EXPECT_EQ(ran(person, {"history", "--json"}, {.out = fullDevice()}).code, 74);
    EXPECT_EQ(ran(person, {"--help"}, {.out = fullDevice()}).code, 74);
    EXPECT_EQ(ran(person, {"--version"}, {.out = fullDevice()}).code, 74);
}

TEST(ExitCode, is75WhenSomebodyElseHoldsTheDirectory)
{
    // Both wait for five seconds, at the same time.
    const Person person;
    person.has(stateIn(WorkflowState::idle));
    const auto before = pictureOf(person.directory());
    const Descriptor directory(::open(person.directory().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    ASSERT_EQ(::flock(directory.get(), LOCK_EX | LOCK_NB), 0);
    Process process(realProgram({"--directory", person.directory().string(), "ask", "Why?"}));
    const Ending ending = person.types({"plan", "--start", "--json"});
    EXPECT_EQ(ending.code, ExitCode::lockBusy);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(jsonAt("/error", ending.err),
              R"({"case":"lockBusy","message":"Another program is at work in )" +
                  person.directory().string() + R"(; try again."})");
    EXPECT_EQ(process.wait().code, 75);
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(ClosedChannel, doesNoHarm)
{
    // Files that the program opens then get the numbers of the standard channels.
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

TEST(TwoPrograms, atWorkAtOnceLoseNothing)
{
    constexpr int count = 25;
    const Person person;
    for (int round = 0; round < count; ++round) {
        const Words words = {"--directory", person.directory().string(), "ask"};
        Words one = words;
        one.push_back("one " + std::to_string(round));
        Words other = words;
        other.push_back("other " + std::to_string(round));
        Process first(realProgram(one));
        Process second(realProgram(other));
        EXPECT_EQ(first.wait().code, 0);
        EXPECT_EQ(second.wait().code, 0);
    }
    const QuillmereState state = person.state();
    std::vector<std::string> questions;
    for (const AgentQuestion& question : state.agentQuestions) {
        questions.push_back(question.question);
    }
    EXPECT_EQ(questions.size(), 2u * count);
    std::sort(questions.begin(), questions.end());
    EXPECT_EQ(std::unique(questions.begin(), questions.end()), questions.end());
    EXPECT_EQ(person.agentSummary().openQuestions, state.agentQuestions);
    EXPECT_EQ(person.widgetSummary().openQuestionCount, 2 * count);
    EXPECT_EQ(person.names().size(), 3u);
}

TEST(RealProgram, withoutACommandIsStatus)
{
    const Person person;
    person.has(stateIn(WorkflowState::sessionReview));
    const ProcessEnding bare = ran(person, {});
    EXPECT_EQ(bare.code, 0);
    EXPECT_EQ(bare.out, ran(person, {"status"}).out);
    EXPECT_NE(bare.out.find("Next: review\n"), std::string::npos);
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

TEST(RealProgram, asksNobodyWhereNobodyIs)
{
    const Person person;
    EXPECT_EQ(ran(person, {"plan", "--start"}).err, "");
    EXPECT_EQ(ran(person, {"focus"}).err, "Save a session plan before focus starts.\n");
}

}  // namespace
}  // namespace quillmere::test
