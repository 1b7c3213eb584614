// The error of a state file that cannot be used leads to the fault.
#include <gtest/gtest.h>

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

/// The error of a command after one part of the state file was edited.
std::string errorAfterEditing(const std::string& part, const std::string& replacement)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const std::filesystem::path file = person.store().stateURL();
    writeText(file, replaced(textOf(file), part, replacement));
    const Ending ending = person.types({"pause"});
    EXPECT_EQ(ending.code, ExitCode::unusableData);
    return replaced(ending.err, file.string(), "FILE");
}

/// The number of the line of the state file on which a text stands, counted from 1.
std::size_t lineOf(const std::string& part)
{
    const Person person;
    person.has(stateIn(WorkflowState::focusing));
    const std::string text = textOf(person.store().stateURL());
    const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find(part));
    return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

std::string onLine(const std::string& part) { return "line " + std::to_string(lineOf(part)) + ", column "; }

TEST(AnUnusableState, isNamedWithTheLineAndColumnOfTheValue)
{
    const std::string error =
        errorAfterEditing(R"("workflow_state" : "focusing")", R"("workflow_state" : "asleep")");
    EXPECT_TRUE(error.starts_with("The state cannot be used: FILE, " + onLine("workflow_state") +
                                  "22: workflow_state: expected one of "))
        << error;
    EXPECT_TRUE(
        error.ends_with(R"(found "asleep". Nothing was changed; quillmere restore lists earlier versions.)"
                        "\n"))
        << error;
}

TEST(AnUnusableState, countsColumnsInCharacters)
{
    const std::string error =
        errorAfterEditing(R"("workflow_state" : "focusing")", R"("ü" : "ü", "workflow_state" : 1)");
    EXPECT_TRUE(error.starts_with("The state cannot be used: FILE, " + onLine("workflow_state") + "33: "))
        << error;
}

TEST(AnUnusableState, isNamedWithTheObjectThatLacksAKey)
{
    const std::string error = errorAfterEditing(R"("workflow_state")", R"("workflow")");
    EXPECT_TRUE(error.starts_with("The state cannot be used: FILE, line 1, column 1: workflow_state: "))
        << error;
}

TEST(AnUnusableState, isNamedWithThePlaceWhereItStopsBeingJson)
{
    const std::string error =
        errorAfterEditing(R"("workflow_state" : "focusing")", R"("workflow_state" : focusing)");
    EXPECT_TRUE(error.starts_with("The state cannot be used: FILE, " + onLine("workflow_state") +
                                  "23: expected well-formed JSON, found "))
        << error;
}

TEST(AnUnusableState, isDescribedInWholeSentences)
{
    const std::string error =
        errorAfterEditing(R"("workflow_state" : "focusing")", R"("workflow_state" : focusing")");
    EXPECT_EQ(error.find(".."), std::string::npos) << error;
}

}  // namespace
}  // namespace quillmere::test
