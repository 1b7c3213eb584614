// Design values that an application and its widget share.
#pragma once

#include <quillmere/widget/widget_snapshot.hpp>

#include <cstdint>
#include <string>

namespace quillmere {

namespace QuillmereDesign {

/// The names of the accent colours; each user interface has its own colours for them.
enum class Accent { focus, rest, plan, review, neutral };

/// In layout points.
namespace Spacing {
inline constexpr double none = 0;
inline constexpr double tight = 4;
inline constexpr double snug = 8;
inline constexpr double regular = 12;
inline constexpr double loose = 16;
inline constexpr double section = 24;
}  // namespace Spacing

/// In layout points.
namespace Radius {
inline constexpr double control = 8;
inline constexpr double card = 12;
}  // namespace Radius

Accent accent(WidgetPhase phase);

/// Minutes and seconds without hours: 3661 is "61:01". Overtime is negative and gets a plus sign: -75 is
/// "+01:15". The most negative number is a fatal error.
std::string timeText(std::int64_t remainingSeconds);

/// The status in one line: "Session 3 of 8", "Break".
std::string caption(const WidgetSnapshot& snapshot);

}  // namespace QuillmereDesign

template <>
struct EnumerationTable<QuillmereDesign::Accent> {
    static constexpr auto rows = std::to_array<RawText<QuillmereDesign::Accent>>({
        {QuillmereDesign::Accent::focus, "focus"},
        {QuillmereDesign::Accent::rest, "rest"},
        {QuillmereDesign::Accent::plan, "plan"},
        {QuillmereDesign::Accent::review, "review"},
        {QuillmereDesign::Accent::neutral, "neutral"},
    });
};

}  // namespace quillmere
