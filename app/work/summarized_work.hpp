// The work as the two summaries tell it, for displays that must not read a long state.
#pragma once

#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/agent_snapshot.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <optional>

namespace quillmere::work {

struct SummarizedWork {
    WidgetSnapshot widget;
    /// The state without its history and its answered questions, from the agent's summary. Absent where that
    /// is missing, belongs to another state than the widget's summary or is outside the limits
    /// (workspace::requireUsable), and in a break: the agent's summary does not tell when that began, and
    /// the widget's tells all of it.
    std::optional<QuillmereState> state;

    static SummarizedWork of(WidgetSnapshot widget, std::optional<AgentSnapshot> agent);

    friend bool operator==(const SummarizedWork&, const SummarizedWork&) = default;
};

}  // namespace quillmere::work
