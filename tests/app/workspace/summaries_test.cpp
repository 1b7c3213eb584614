// The agent's summary as a display reads it.
#include "workspace/summaries.hpp"

#include <unistd.h>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

TEST(AgentSummary, isTheOneThatWasWrittenLast)
{
    const Person person;
    person.has(fullState());
    EXPECT_EQ(workspace::agentSummary(person.store()), person.agentSummary());
}

TEST(AgentSummary, isAbsentWhereItCannotBeRead)
{
    const Person person;
    EXPECT_FALSE(workspace::agentSummary(person.store()));
    person.has(fullState());
    writeText(person.store().agentStateURL(), "{}");
    EXPECT_FALSE(workspace::agentSummary(person.store()));
    std::filesystem::remove(person.store().agentStateURL());
    std::filesystem::create_directory(person.store().agentStateURL());
    EXPECT_FALSE(workspace::agentSummary(person.store()));
}

TEST(AgentSummary, isAbsentWhenANewerProgramWroteIt)
{
    const Person person;
    person.has(fullState());
    const std::string text = textOf(person.store().agentStateURL());
    writeText(person.store().agentStateURL(),
              replaced(text, "\"schema_version\" : 1", "\"schema_version\" : 2"));
    EXPECT_FALSE(workspace::agentSummary(person.store()));
}

TEST(AgentSummary, isAbsentWhenItIsTooLongForAStatusBar)
{
    const Person person;
    QuillmereState state = fullState();
    state.agentQuestions.back().question = std::string(1 << 18, 'x');
    person.has(state);
    EXPECT_FALSE(workspace::agentSummary(person.store()));
}

}  // namespace
}  // namespace quillmere::test
