// What the engine refuses: its own message, its case for programs, and nothing written.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr const char* notNow = "This action is not available in the current workflow state.";

/// Every command that moves the workflow, with the state in which it is not refused; blockPlanning for
/// those that want a scheduled block, which stateIn never has.
struct Move {
    Words words;
    WorkflowState accepts;
};

const std::vector<Move>& moves()
{
    static const std::vector<Move> all = {
        {{"start"}, WorkflowState::blockPlanning},
        {{"edit"}, WorkflowState::blockPlanning},
        {{"cancel"}, WorkflowState::blockPlanning},
        {{"plan", "--start"}, WorkflowState::idle},
        {{"plan", "--at", "+1h"}, WorkflowState::idle},
        // Ill-said as well, which counts only where the step could be taken.
        {{"plan"}, WorkflowState::idle},
        {{"plan", "--focus", "soon", "--start"}, WorkflowState::idle},
        {{"focus"}, WorkflowState::sessionPlanning},
        {{"focus", "--outcome", "More"}, WorkflowState::sessionPlanning},
        {{"focus", "--towards", "9"}, WorkflowState::sessionPlanning},
        {{"pause"}, WorkflowState::focusing},
        {{"end"}, WorkflowState::focusing},
        {{"review", "--completion", "yes"}, WorkflowState::sessionReview},
        {{"review", "--completion", "yes", "--next-outcome", "More"}, WorkflowState::sessionReview},
        {{"review"}, WorkflowState::sessionReview},
        {{"review", "--completion", "maybe"}, WorkflowState::sessionReview},
        {{"review", "--completion", "yes", "--next-towards", "9"}, WorkflowState::sessionReview},
        {{"break", "extend", "5m"}, WorkflowState::breaking},
        {{"break", "extend", "soon"}, WorkflowState::breaking},
        {{"break", "end"}, WorkflowState::breaking},
        {{"break", "skip"}, WorkflowState::breaking},
        {{"reflect"}, WorkflowState::blockReview},
    };
    return all;
}

/// Whether a command is refused, for persons and for programs, and leaves everything as it was.
void expectRefused(const Person& person, const Words& words)
{
    SCOPED_TRACE(words.front());
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types(words);
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.out, "");
    EXPECT_EQ(ending.err, std::string(notNow) + "\n");
    Words forPrograms = {"--json"};
    forPrograms.insert(forPrograms.end(), words.begin(), words.end());
    const Ending json = person.types(forPrograms);
    EXPECT_EQ(json.code, ExitCode::refused);
    EXPECT_EQ(json.out, "");
    EXPECT_EQ(jsonAt("", json.err), R"({"error":{"case":"invalidTransition","message":")" +
                                        std::string(notNow) + R"("},"events":[]})");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

TEST(RefusedCommand, saysWhyAndWritesNothingInEveryState)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        const Person person;
        person.has(stateIn(workflowState));
        for (const Move& move : moves()) {
            const bool plansOn = workflowState == WorkflowState::blockPlanning && move.words[0] == "plan";
            if (plansOn || (move.accepts == workflowState && move.accepts != WorkflowState::blockPlanning)) {
                continue;
            }
            expectRefused(person, move.words);
        }
        expectRefused(person, {"resume"});
    }
}

TEST(RefusedCommand, leavesNoDirectoryBehind)
{
    const Person person;
    const std::string directory = (person.directory() / "new" / "deep").string();
    const Words refused[] = {{"pause"}, {"review"}, {"break", "end"}, {"plan", "--cycles", "0", "--start"}};
    for (const Words& words : refused) {
        SCOPED_TRACE(words.front());
        Words line = {"--directory", directory};
        line.insert(line.end(), words.begin(), words.end());
        EXPECT_EQ(person.runs(line).code, ExitCode::refused);
        EXPECT_EQ(person.names(), Words{});
    }
}

TEST(MisunderstoodCommand, leavesNoDirectoryBehind)
{
    const Person person;
    const std::string directory = (person.directory() / "new" / "deep").string();
    for (const Words& words : {Words{"plan"}, Words{"plan", "--focus", "soon", "--start"},
                               Words{"plan", "--at", "noon"}, Words{"answer", "1", "Yes"}}) {
        SCOPED_TRACE(testing::PrintToString(words));
        Words line = {"--directory", directory};
        line.insert(line.end(), words.begin(), words.end());
        EXPECT_EQ(person.runs(line).code, ExitCode::usage);
        EXPECT_EQ(person.names(), Words{});
    }
}

TEST(RefusedCommand, isOneOfAPausedSessionToo)
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.typesLater(10, {"pause"});
    expectRefused(person, {"pause"});
}

TEST(RefusedCommand, isPlanningWhileABlockWaits)
{
    const Person person;
    person.has(stateWithScheduledBlock());
    expectRefused(person, {"plan", "--start"});
    expectRefused(person, {"plan", "--at", "+1h"});
}

TEST(RefusedCommand, leavesNoFileForANewPerson)
{
    const Person person;
    for (const Move& move : moves()) {
        if (move.accepts != WorkflowState::idle) {
            expectRefused(person, move.words);
        }
    }
    EXPECT_EQ(person.names(), Words{});
}

}  // namespace
}  // namespace quillmere::test
