// What a widget computes from its summary.
#include <quillmere/records/checked_arithmetic.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <algorithm>
#include <iterator>

namespace quillmere {

std::optional<double> WidgetSnapshot::sessionProgress(Instant at) const
{
    if (!countdown) {
        return std::nullopt;
    }
    const double total = countdown->endsAt - countdown->startedAt;
    if (!(total > 0)) {
        return std::nullopt;
    }
    const double elapsed = countdown->isPaused
                               ? total - static_cast<double>(countdown->frozenRemainingSeconds)
                               : at - countdown->startedAt;
    return std::clamp(elapsed / total, 0.0, 1.0);
}

double WidgetSnapshot::blockProgress() const
{
    if (sessionsPlanned < 1) {
        return 0;
    }
    const double share = static_cast<double>(sessionsStarted) / static_cast<double>(sessionsPlanned);
    return std::clamp(share, 0.0, 1.0);
}

std::int64_t WidgetSnapshot::hiddenOpenQuestionCount() const
{
    return std::max<std::int64_t>(checkedDifference(openQuestionCount, std::ssize(openQuestions)), 0);
}

}  // namespace quillmere
