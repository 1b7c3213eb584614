#include <quillmere/widget/widget_timeline_plan.hpp>

namespace quillmere::WidgetTimelinePlan {
namespace {

bool runsAt(const std::optional<WidgetCountdown>& countdown, Instant now)
{
    return countdown && !countdown->isPaused && countdown->endsAt > now;
}

}  // namespace

std::vector<Entry> entries(const WidgetSnapshot& snapshot, Instant now)
{
    std::vector<Entry> entries{{.date = now, .snapshot = snapshot}};
    if (runsAt(snapshot.countdown, now)) {
        entries.push_back({.date = snapshot.countdown->endsAt, .snapshot = snapshot});
        WidgetCountdown& countdown = *entries.back().snapshot.countdown;
        countdown.frozenRemainingSeconds = 0;
    }
    return entries;
}

Instant refreshDate(const WidgetSnapshot& snapshot, Instant now)
{
    return runsAt(snapshot.countdown, now) ? snapshot.countdown->endsAt + 1 : now + idleRefreshInterval;
}

}  // namespace quillmere::WidgetTimelinePlan
