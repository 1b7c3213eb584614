// The coarse phase that a widget shows.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/records/workflow_state.hpp>

#include <string_view>

namespace quillmere {

enum class WidgetPhase { idle, planning, focusing, reviewing, breaking, complete };

template <>
struct EnumerationTable<WidgetPhase> {
    struct Row {
        WidgetPhase value;
        std::string_view text;
        std::string_view title;
        std::string_view symbolName;
    };
    static constexpr auto rows = std::to_array<Row>({
        {WidgetPhase::idle, "idle", "Idle", "moon.zzz"},
        {WidgetPhase::planning, "planning", "Planning", "list.bullet.clipboard"},
        {WidgetPhase::focusing, "focusing", "Focus", "target"},
        {WidgetPhase::reviewing, "reviewing", "Review", "checkmark.circle"},
        {WidgetPhase::breaking, "breaking", "Break", "cup.and.saucer"},
        {WidgetPhase::complete, "complete", "Complete", "flag.checkered"},
    });
};

/// The name of the phase on screen.
constexpr std::string_view title(WidgetPhase phase)
{
    return rowOf(EnumerationTable<WidgetPhase>::rows, phase).title;
}

/// The name of the symbol that the widget draws; each user interface has its own picture for it.
constexpr std::string_view symbolName(WidgetPhase phase)
{
    return rowOf(EnumerationTable<WidgetPhase>::rows, phase).symbolName;
}

template <class Enumeration>
Enumeration fromWorkflowState(WorkflowState state) = delete;

/// The phase of a workflow state. Both planning states have the same phase, and so do both review states.
template <>
WidgetPhase fromWorkflowState<WidgetPhase>(WorkflowState state);

}  // namespace quillmere
