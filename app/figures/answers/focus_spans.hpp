// How much a person has focused: today, this week, last week and this month.
#pragma once

#include "figures/look_back.hpp"

#include <optional>

namespace quillmere::figures {

/// A day, week or month of the calendar, whole even while it is not over.
struct FocusSpan {
    Day first;
    Day last;
    double focusSeconds;
    std::optional<double> goalSeconds;  ///< of all its days but those off; absent without a goal
    double beforeSeconds;               ///< focus of the same span before, whole
    /// The focus of as many first days of the span before as this one has had by now, today included. It
    /// equals `beforeSeconds` for a span that is over.
    double beforeByNowSeconds;
};

struct FocusSpans {
    FocusSpan today;
    FocusSpan thisWeek;
    FocusSpan lastWeek;
    FocusSpan thisMonth;
};

/// By the days of `everyDay`: the range of the look back does not matter.
FocusSpans focusSpansOf(const LookBack& look);

}  // namespace quillmere::figures
