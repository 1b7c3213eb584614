// Where the work stands, in the words and figures of the widget's summary.
#pragma once

#include "program.hpp"

#include <iosfwd>

namespace quillmere::app {

/// An instant as the files write it.
Json instantJson(Instant instant);

/// A record as the files write it.
template <class Record>
Json recordJson(const Record& record)
{
    return Json::parse(JsonEncoder(JsonLayout::compact).encode(record).view());
}

Json statusJson(const Situation& situation);

void printStatus(std::ostream& out, const Situation& situation, const Style& style);

/// The phase, the caption and, while a timer runs, the time left and a bar: the first lines of what a
/// person and a widget see. The bar shows `progress`.
void printHeadline(std::ostream& out, const WidgetSnapshot& snapshot, Instant now,
                   std::optional<double> progress, const Style& style);

/// Whole seconds left on the countdown as it is to be shown at an instant; absent without one.
std::optional<std::int64_t> remainingSeconds(const WidgetSnapshot& snapshot, Instant now);

/// The share of the running timer that is used up, 0 to 1; absent without one. It stands still in a pause;
/// the widget's own, which is told from the two ends of a countdown, cannot when they are moved on.
std::optional<double> usedShare(const Situation& situation);

/// What is asked of the person, as a heading and a text; nothing when the text is empty.
void printField(std::ostream& out, std::string_view heading, std::string_view text);

}  // namespace quillmere::app
