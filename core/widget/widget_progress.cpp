// Progress values of the widget's summary.
#include <quillmere/records/base/checked_arithmetic.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <algorithm>
#include <iterator>

namespace quillmere {
namespace {

/// The share limited to 0 through 1; 0 for a value that is not a number.
double withinOne(double share) { return share > 0 ? std::min(share, 1.0) : 0.0; }

}  // namespace

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
    return withinOne(elapsed / total);
}

double WidgetSnapshot::blockProgress() const
{
    if (sessionsPlanned < 1) {
        return 0;
    }
    const double share = static_cast<double>(sessionsStarted) / static_cast<double>(sessionsPlanned);
    return withinOne(share);
}

std::int64_t WidgetSnapshot::hiddenOpenQuestionCount() const
{
    return std::max<std::int64_t>(checkedDifference(openQuestionCount, std::ssize(openQuestions)), 0);
}

}  // namespace quillmere
