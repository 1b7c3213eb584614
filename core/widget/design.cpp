#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/widget/design.hpp>

namespace quillmere::QuillmereDesign {
namespace {

struct PhaseLook {
    WidgetPhase value;
    Accent accent;
    std::string_view caption;
};

constexpr auto looks = std::to_array<PhaseLook>({
    {WidgetPhase::idle, Accent::neutral, "No active block"},
    {WidgetPhase::planning, Accent::plan, "Plan the next session"},
    {WidgetPhase::focusing, Accent::focus, "Focus in progress"},
    {WidgetPhase::reviewing, Accent::review, "Review this session"},
    {WidgetPhase::breaking, Accent::rest, "Break"},
    {WidgetPhase::complete, Accent::neutral, "Block complete"},
});
static_assert(inCaseOrder(looks) && looks.size() == EnumerationTable<WidgetPhase>::rows.size());

std::string twoDigits(std::int64_t value) { return (value < 10 ? "0" : "") + std::to_string(value); }

}  // namespace

Accent accent(WidgetPhase phase) { return rowOf(looks, phase).accent; }

std::string timeText(std::int64_t remainingSeconds)
{
    const std::int64_t shown = checkedMagnitude(remainingSeconds);
    const std::int64_t minutes = shown / 60;
    return (remainingSeconds < 0 ? "+" : "") + twoDigits(minutes) + ":" + twoDigits(shown - minutes * 60);
}

std::string caption(const WidgetSnapshot& snapshot)
{
    const bool isNumbered = snapshot.phase == WidgetPhase::focusing && snapshot.currentSessionNumber &&
                            snapshot.sessionsPlanned >= 1;
    if (isNumbered) {
        return "Session " + std::to_string(*snapshot.currentSessionNumber) + " of " +
               std::to_string(snapshot.sessionsPlanned);
    }
    return std::string(rowOf(looks, snapshot.phase).caption);
}

}  // namespace quillmere::QuillmereDesign
