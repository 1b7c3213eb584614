#include <gtest/gtest.h>
#include <quillmere/engine/workflow_error.hpp>

#include <array>
#include <functional>
#include <string>
#include <type_traits>

namespace quillmere::test {
namespace {

struct Expected {
    WorkflowError::Case reason;
    const char* name;
    const char* message;
};

constexpr auto cases = std::to_array<Expected>({
    {WorkflowError::invalidTransition, "invalidTransition",
     "This action is not available in the current workflow state."},
    {WorkflowError::missingBlock, "missingBlock", "Start or schedule a block before this action."},
    {WorkflowError::missingSessionPlan, "missingSessionPlan", "Save a session plan before focus starts."},
    {WorkflowError::nextSessionPlanRequired, "nextSessionPlanRequired",
     "Save the next session plan before the break starts."},
    {WorkflowError::ratingOutOfRange, "ratingOutOfRange", "Energy and Morale must each be from 1 through 5."},
    {WorkflowError::invalidDuration, "invalidDuration",
     "Durations and the cycle count must be greater than zero."},
});

TEST(WorkflowError, hasOneFixedMessageForEachCase)
{
    for (const auto& [reason, name, message] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(WorkflowError(reason).errorDescription(), message);
        EXPECT_STREQ(WorkflowError(reason).what(), message);
    }
}

TEST(WorkflowError, namesItsCaseAsItIsSpelledInCode)
{
    for (const auto& [reason, name, message] : cases) {
        EXPECT_EQ(WorkflowError(reason).caseName(), name);
    }
}

TEST(WorkflowError, isEqualAndHashedByItsCase)
{
    const std::hash<WorkflowError> hash;
    for (const Expected& left : cases) {
        for (const Expected& right : cases) {
            SCOPED_TRACE(std::string(left.name) + " and " + right.name);
            const bool same = &left == &right;
            EXPECT_EQ(WorkflowError(left.reason) == WorkflowError(right.reason), same);
            EXPECT_EQ(hash(left.reason) == hash(right.reason), same);
        }
    }
}

TEST(WorkflowError, comparesWithABareCase)
{
    EXPECT_TRUE(WorkflowError(WorkflowError::missingBlock) == WorkflowError::missingBlock);
    EXPECT_FALSE(WorkflowError(WorkflowError::missingBlock) == WorkflowError::invalidDuration);
}

TEST(WorkflowError, isCaughtAsAStandardException)
{
    try {
        throw WorkflowError(WorkflowError::missingSessionPlan);
    } catch (const std::exception& error) {
        EXPECT_STREQ(error.what(), "Save a session plan before focus starts.");
    }
    // A handler may copy the error, and the copy must not throw.
    EXPECT_TRUE(std::is_nothrow_copy_constructible_v<WorkflowError>);
}

TEST(WorkflowErrorDeathTest, stopsTheProgramOverAValueThatIsNoCase)
{
    const WorkflowError error(static_cast<WorkflowError::Case>(6));
    const char* const message = "an enumeration holds a value that is none of its cases";
    EXPECT_DEATH(error.what(), message);
    EXPECT_DEATH((void)error.caseName(), message);
    EXPECT_DEATH((void)error.errorDescription(), message);
}

}  // namespace
}  // namespace quillmere::test
