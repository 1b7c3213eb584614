// The screen that a tap on the widget opens, and its deep link.
#pragma once

#include <quillmere/records/base/enumeration.hpp>
#include <quillmere/widget/widget_phase.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace quillmere {

enum class WidgetRoute { idle, blockPlanning, sessionPlanning, focus, sessionReview, breakTime, blockReview };

template <>
struct EnumerationTable<WidgetRoute> {
    static constexpr auto rows = std::to_array<RawText<WidgetRoute>>({
        {WidgetRoute::idle, "idle"},
        {WidgetRoute::blockPlanning, "block-planning"},
        {WidgetRoute::sessionPlanning, "session-planning"},
        {WidgetRoute::focus, "focus"},
        {WidgetRoute::sessionReview, "session-review"},
        {WidgetRoute::breakTime, "break"},
        {WidgetRoute::blockReview, "block-review"},
    });
};

/// The screen of a workflow state; `idle` for `complete`.
template <>
WidgetRoute fromWorkflowState<WidgetRoute>(WorkflowState state);

template <class Enumeration>
Enumeration fromPhase(WidgetPhase phase) = delete;

/// The screen of a phase, for summaries without a route. For planning and reviewing it is the screen of the
/// session, not of the block.
template <>
WidgetRoute fromPhase<WidgetRoute>(WidgetPhase phase);

/// The deep link that opens the screen: "quillmere://open/session-review".
std::string url(WidgetRoute route);

template <class Enumeration>
std::optional<Enumeration> fromURL(std::string_view url) = delete;

/// The screen that a deep link opens (RFC 3986): scheme "quillmere", host "open", and the route as the path.
/// Case is ignored for ASCII letters, and so are slashes at both ends of the path. An empty path is `idle`.
/// Percent-encoding is decoded; user, port, query and fragment are ignored. Absent for any other or malformed
/// text.
template <>
std::optional<WidgetRoute> fromURL<WidgetRoute>(std::string_view url);

}  // namespace quillmere
