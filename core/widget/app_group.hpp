// The names that an application and its widget share.
#pragma once

#include <string_view>

namespace quillmere::QuillmereAppGroup {

/// The identifier of the group, by which `FileManager` finds the shared directory.
inline constexpr std::string_view identifier = "T5Q2N84LW7.quillmere";

/// The name under which a platform registers and reloads the widget.
inline constexpr std::string_view widgetKind = "QuillmereStatusWidget";

/// The scheme of the deep links.
inline constexpr std::string_view urlScheme = "quillmere";

}  // namespace quillmere::QuillmereAppGroup
