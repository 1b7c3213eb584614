#include <quillmere/records/block.hpp>

#include <algorithm>
#include <iterator>

namespace quillmere {

Block Block::default_(Instant now)
{
    Block block{
        .id = Identifier::random(),
        .createdAt = now,
        .plannedStart = std::nullopt,
        .focusDurationSeconds = 25 * 60,
        .breakDurationSeconds = 5 * 60,
        .cycleCount = 8,
        .outcomes = {},
        .whyValue = {},
        .doneTest = {},
        .hazards = {},
        .measurableCheck = {},
        .contextNotes = {},
        .sessions = {},
        .reflection = std::nullopt,
        .completedAt = std::nullopt,
        .scheduledStartTriggeredAt = std::nullopt,
    };
    block.outcomes.push_back({.id = Identifier::random(), .title = {}});
    return block;
}

Instant Block::plannedEnd() const
{
    const double cycleSeconds = focusDurationSeconds + breakDurationSeconds;
    return plannedStart.value_or(createdAt) + cycleSeconds * static_cast<double>(cycleCount);
}

const Outcome* Block::outcomeServed(const SessionPlan& plan) const
{
    if (!plan.blockOutcomeID) {
        return nullptr;
    }
    const auto found = std::find_if(outcomes.begin(), outcomes.end(), [&](const Outcome& outcome) {
        return outcome.id == *plan.blockOutcomeID;
    });
    return found == outcomes.end() ? nullptr : &*found;
}

bool Block::hasCyclesLeft() const { return std::ssize(sessions) < cycleCount; }

}  // namespace quillmere
