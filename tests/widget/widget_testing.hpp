// Helpers of the widget's tests.
#pragma once

#include <quillmere/widget/widget_route.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <optional>
#include <string_view>

#include "support/sample_states.hpp"

namespace quillmere::test {

inline WidgetSnapshot summaryOf(const QuillmereState& state) { return WidgetSnapshot::make(state, moment); }

/// The route of a deep link; `noRoute` when the text is none.
inline std::optional<WidgetRoute> parsed(std::string_view link) { return fromURL<WidgetRoute>(link); }
inline constexpr std::optional<WidgetRoute> noRoute;

}  // namespace quillmere::test
