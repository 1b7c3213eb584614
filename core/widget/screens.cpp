// The phase and the screen of each workflow state.
#include <quillmere/widget/widget_phase.hpp>
#include <quillmere/widget/widget_route.hpp>

namespace quillmere {
namespace {

struct PhaseAndRoute {
    WorkflowState value;
    WidgetPhase phase;
    WidgetRoute route;
};

constexpr auto screens = std::to_array<PhaseAndRoute>({
    {WorkflowState::idle, WidgetPhase::idle, WidgetRoute::idle},
    {WorkflowState::blockPlanning, WidgetPhase::planning, WidgetRoute::blockPlanning},
    {WorkflowState::sessionPlanning, WidgetPhase::planning, WidgetRoute::sessionPlanning},
    {WorkflowState::focusing, WidgetPhase::focusing, WidgetRoute::focus},
    {WorkflowState::sessionReview, WidgetPhase::reviewing, WidgetRoute::sessionReview},
    {WorkflowState::breaking, WidgetPhase::breaking, WidgetRoute::breakTime},
    {WorkflowState::blockReview, WidgetPhase::reviewing, WidgetRoute::blockReview},
    {WorkflowState::complete, WidgetPhase::complete, WidgetRoute::idle},
});
static_assert(inCaseOrder(screens) && screens.size() == EnumerationTable<WorkflowState>::rows.size());

}  // namespace

template <>
WidgetPhase fromWorkflowState<WidgetPhase>(WorkflowState state)
{
    return rowOf(screens, state).phase;
}

template <>
WidgetRoute fromWorkflowState<WidgetRoute>(WorkflowState state)
{
    return rowOf(screens, state).route;
}

template <>
WidgetRoute fromPhase<WidgetRoute>(WidgetPhase phase)
{
    switch (phase) {
        case WidgetPhase::idle: return WidgetRoute::idle;
        case WidgetPhase::planning: return WidgetRoute::sessionPlanning;
        case WidgetPhase::focusing: return WidgetRoute::focus;
        case WidgetPhase::reviewing: return WidgetRoute::sessionReview;
        case WidgetPhase::breaking: return WidgetRoute::breakTime;
        case WidgetPhase::complete: return WidgetRoute::idle;
    }
    fatalError("quillmere: an enumeration holds a value that is none of its cases");
}

}  // namespace quillmere
