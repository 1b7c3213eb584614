#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/base/enumeration.hpp>

namespace quillmere {
namespace {

struct ErrorRow {
    WorkflowError::Case value;
    std::string_view name;
    const char* message;
};

constexpr auto errorRows = std::to_array<ErrorRow>({
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
static_assert(inCaseOrder(errorRows));

}  // namespace

std::string_view WorkflowError::caseName() const noexcept { return rowOf(errorRows, reason_).name; }

const char* WorkflowError::what() const noexcept { return rowOf(errorRows, reason_).message; }

std::string WorkflowError::errorDescription() const { return what(); }

}  // namespace quillmere
