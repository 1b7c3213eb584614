// Findings on the content of the files.
#include "agent/asking.hpp"
#include "doctor_testing.hpp"
#include "support/file_system.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;
using doctor::Verdict;

/// An idle state with this many open questions, asked at an instant.
QuillmereState stateWithQuestions(std::size_t count, Instant askedAt)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.agentQuestions.clear();
    for (std::size_t index = 0; index < count; ++index) {
        state.agentQuestions.push_back({.id = Identifier::random(),
                                        .question = "Why?",
                                        .createdAt = askedAt,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    }
    return state;
}

TEST(StateFinding, isGoodForAStateThatCanBeUsed)
{
    Person person;
    person.has(fullState());
    EXPECT_TRUE(isFound(findingOf("state", person), Verdict::good, "It can be read: 1 finished block, "));
}

TEST(StateFinding, isToLookAtWhereThereIsNoneYet)
{
    EXPECT_TRUE(isFound(findingOf("state", Person()), Verdict::look, "There is no state yet"));
}

TEST(StateFinding, isWrongForAStateThatCannotBeDecoded)
{
    const Person person = personWithPrivateFiles();
    writeText(person.store().stateURL(), "{\n  \"id\" : 5}");
    const doctor::Finding finding = findingOf("state", person);
    EXPECT_TRUE(
        isFound(finding, Verdict::wrong,
                "The state cannot be used: " + person.store().stateURL().string() + ", line 2, column 10: id",
                "quillmere --directory " + person.directory().string() + " restore"));
    EXPECT_TRUE(isFound(findingOf("agent", person), Verdict::look, "cannot look or ask"));
    EXPECT_FALSE(isMade("summaries", person));
}

TEST(StateFinding, isWrongForAStateOutsideTheLimits)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    writeText(person.store().stateURL(),
              replaced(textOf(person.store().stateURL()), "\"cycle_count\" : 3", "\"cycle_count\" : 5000"));
    EXPECT_TRUE(
        isFound(findingOf("state", person), Verdict::wrong, "current_block.cycle_count is out of bounds."));
}

TEST(StateFinding, isWrongForAStateThatCannotBeRead)
{
    const Person person;
    makeFifo(person.store().stateURL());
    EXPECT_TRUE(isFound(findingOf("state", person), Verdict::wrong,
                        "The state cannot be read: read: Invalid argument"));
}

TEST(SummariesFinding, isToLookAtWhenASummaryIsOldOrMissing)
{
    Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("summaries", person), Verdict::good, "Both"));
    for (const fs::path& summary :
         {person.store().agentStateURL(), person.directory() / WidgetSnapshotStore::fileName}) {
        fs::remove(summary);
        EXPECT_TRUE(isFound(findingOf("summaries", person), Verdict::look, summary.string(),
                            "quillmere --directory " + person.directory().string() + " tick"));
        person.types({"tick"});
        EXPECT_TRUE(isFound(findingOf("summaries", person), Verdict::good, "Both"));
    }
}

TEST(ClockFinding, isToLookAtWhenAChangeIsDatedLater)
{
    const TimeZone zone("UTC");
    Person person = personWithPrivateFiles();
    EXPECT_TRUE(isFound(findingOf("clock", person), Verdict::good, "The clock shows 2026-11-15 15:00:00"));
    person.now = moment - 3600;
    EXPECT_TRUE(isFound(findingOf("clock", person), Verdict::look,
                        "The last change is dated after that: 2026-11-15 15:00:00"));
}

TEST(ClockFinding, isToLookAtWhenAQuestionOrAVersionIsDatedLater)
{
    Person person;
    person.has(stateWithQuestions(1, moment + 60));
    EXPECT_TRUE(isFound(findingOf("clock", person), Verdict::look, "A question is dated after that"));
    QuillmereState answered = stateWithQuestions(1, moment);
    answered.agentQuestions.front().answeredAt = moment + 60;
    answered.agentQuestions.front().answer = "So.";
    person.has(answered);
    EXPECT_TRUE(isFound(findingOf("clock", person), Verdict::look, "An answer is dated after that"));
    person.has(stateIn(WorkflowState::idle));
    const fs::path versions = subjectOf(person).workspace.stateDirectory() / "versions";
    fs::create_directories(versions);
    fs::copy_file(person.store().stateURL(), versions / "000001_2030-01-01T00:00:00Z.json");
    EXPECT_TRUE(isFound(findingOf("clock", person), Verdict::look, "A version is dated after that"));
}

TEST(ClockFinding, isWrongOutsideTheYearsOfTheFiles)
{
    Person person = personWithPrivateFiles();
    for (const double seconds : {-7e10, 3e11, 1e300}) {
        person.now = Instant(seconds);
        EXPECT_TRUE(isFound(findingOf("clock", person), Verdict::wrong, "outside the years 0000 to 9999"));
    }
}

TEST(AgentFinding, isToLookAtWhenTheMostQuestionsWait)
{
    Person person;
    person.has(stateWithQuestions(agent::mostOpen - 1, moment - 3600));
    EXPECT_TRUE(isFound(findingOf("agent", person), Verdict::good, "An agent may ask: 49 of at most 50"));
    person.has(stateWithQuestions(agent::mostOpen, moment - 3600));
    EXPECT_TRUE(isFound(findingOf("agent", person), Verdict::look, "Agents cannot ask: 50 of at most 50"));
}

TEST(AgentFinding, isToLookAtWhenTheMostWereAskedWithinAMinute)
{
    Person person;
    person.has(stateWithQuestions(agent::mostAMinute, moment));
    EXPECT_TRUE(
        isFound(findingOf("agent", person), Verdict::look, "10 questions were asked within a minute"));
}

}  // namespace
}  // namespace quillmere::test
