// A command that the engine refuses: its message, its name in JSON, and no write.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr const char* notNow = "This action is not available in the current workflow state.";

/// A command that moves the workflow, and the state in which it is accepted. blockPlanning stands for a
/// scheduled block, which stateIn does not have.
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
        // Wrong arguments too: the refusal of the engine is reported first.
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
        {{"resume"}, WorkflowState::focusing},
        {{"reflect"}, WorkflowState::blockReview},
    };
    return all;
}

/// Expects a refusal as text and as JSON, and unchanged files.
void expectRefused(const Person& person, const Words& words)
{
    SCOPED_TRACE(words.front());
    const auto before = pictureOf(person.directory());
    const Ending ending = person.types(words);
    EXPECT_EQ(ending.code, ExitCode::refused);
    EXPECT_EQ(ending.out, "");
    EXPECT_TRUE(ending.err.starts_with(std::string(notNow) + " ")) << ending.err;
    Words forPrograms = {"--json"};
    forPrograms.insert(forPrograms.end(), words.begin(), words.end());
    const Ending json = person.types(forPrograms);
    EXPECT_EQ(json.code, ExitCode::refused);
    EXPECT_EQ(json.out, "");
    EXPECT_TRUE(
        json.err.starts_with(R"({"error":{"case":"invalidTransition","message":")" + std::string(notNow)))
        << json.err;
    EXPECT_EQ(jsonAt("/events", json.err), "[]");
    EXPECT_EQ(pictureOf(person.directory()), before);
}

/// A state in which the engine refuses the command.
WorkflowState refusingState(const Move& move)
{
    return move.accepts == WorkflowState::idle ? WorkflowState::focusing : WorkflowState::idle;
}

TEST(RefusedCommand, saysWhyAndWritesNothing)
{
    for (const Move& move : moves()) {
        const Person person;
        person.has(stateIn(refusingState(move)));
        expectRefused(person, move.words);
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
