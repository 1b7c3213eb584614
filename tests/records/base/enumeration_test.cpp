#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/completion_result.hpp>
#include <quillmere/records/workflow_state.hpp>

#include <gtest/gtest.h>

#include <string>
#include <unordered_set>

namespace quillmere {
namespace {

// Existing files have these texts, so the texts must not change.
constexpr RawText<WorkflowState> workflowStates[] = {
    {WorkflowState::idle, "idle"},
    {WorkflowState::blockPlanning, "blockPlanning"},
    {WorkflowState::sessionPlanning, "sessionPlanning"},
    {WorkflowState::focusing, "focusing"},
    {WorkflowState::sessionReview, "sessionReview"},
    {WorkflowState::breaking, "breaking"},
    {WorkflowState::blockReview, "blockReview"},
    {WorkflowState::complete, "complete"},
};
constexpr RawText<CompletionResult> completionResults[] = {
    {CompletionResult::yes, "Yes"},
    {CompletionResult::half, "Half"},
    {CompletionResult::no, "No"},
};

template <class Enumeration, std::size_t count>
void expectTable(const RawText<Enumeration> (&rows)[count])
{
    const auto cases = allCases<Enumeration>();
    ASSERT_EQ(cases.size(), count);
    for (std::size_t index = 0; index < count; ++index) {
        SCOPED_TRACE(rows[index].text);
        EXPECT_EQ(cases[index], rows[index].value);
        EXPECT_EQ(rawValue(rows[index].value), rows[index].text);
        EXPECT_EQ(fromRawValue<Enumeration>(rows[index].text), rows[index].value);
    }
}

TEST(WorkflowState, listsItsEightCasesInOrderUnderTheirNames) { expectTable(workflowStates); }

TEST(CompletionResult, listsItsThreeCasesInOrderUnderCapitalisedTexts) { expectTable(completionResults); }

TEST(WorkflowState, isAbsentForAnyOtherText)
{
    constexpr std::string_view texts[] = {"",
                                          "Idle",
                                          "IDLE",
                                          "idle ",
                                          " idle",
                                          "idl",
                                          "paused",
                                          "block_planning",
                                          "BlockPlanning",
                                          "planning",
                                          "break",
                                          "focus",
                                          "completed",
                                          "0"};
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(fromRawValue<WorkflowState>(text), std::nullopt);
    }
    EXPECT_EQ(fromRawValue<WorkflowState>(std::string("idle\0", 5)), std::nullopt);
}

TEST(CompletionResult, isAbsentForAnyOtherText)
{
    constexpr std::string_view texts[] = {"", "yes", "half", "no", "YES", "Yes ", "Maybe", "Nope", "Hal"};
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        EXPECT_EQ(fromRawValue<CompletionResult>(text), std::nullopt);
    }
}

TEST(Enumerations, areHashedByCase)
{
    const auto states = allCases<WorkflowState>();
    EXPECT_EQ(std::unordered_set<WorkflowState>(states.begin(), states.end()).size(), 8U);
    const auto results = allCases<CompletionResult>();
    EXPECT_EQ(std::unordered_set<CompletionResult>(results.begin(), results.end()).size(), 3U);
}

TEST(Enumerations, areKnownWhileCompiling)
{
    static_assert(rawValue(WorkflowState::breaking) == "breaking");
    static_assert(fromRawValue<CompletionResult>("Half") == CompletionResult::half);
    static_assert(allCases<WorkflowState>().back() == WorkflowState::complete);
}

TEST(EnumerationsDeathTest, stopTheProgramForAValueThatIsNoCase)
{
    EXPECT_DEATH(rawValue(static_cast<WorkflowState>(8)), "none of its cases");
    EXPECT_DEATH(rawValue(static_cast<CompletionResult>(-1)), "none of its cases");
}

}  // namespace
}  // namespace quillmere
