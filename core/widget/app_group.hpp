// What an application and its widget must agree on to find each other.
#pragma once

#include <string_view>

namespace quillmere::QuillmereAppGroup {

/// Under which the platform finds the shared container.
inline constexpr std::string_view identifier = "T5Q2N84LW7.quillmere";

/// Under which the widget is registered, and asked to reload.
inline constexpr std::string_view widgetKind = "QuillmereStatusWidget";

/// Of the deep links.
inline constexpr std::string_view urlScheme = "quillmere";

}  // namespace quillmere::QuillmereAppGroup
