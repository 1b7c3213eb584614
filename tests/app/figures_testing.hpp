// Sessions to look back on.
#pragma once

#include "figures/statistics.hpp"

#include <string>
#include <vector>

#include "program_testing.hpp"

namespace quillmere::test {

using figures::Day;
using figures::LookBack;
using figures::Range;
using figures::Unit;

/// The day of "2026-11-15"; fails the test for any other text.
Day day(const std::string& text);

/// The instant of "2026-11-15 16:00" in the time zone of the test.
Instant local(const std::string& text);

/// A reviewed session of so many seconds, pauses included, with the number 1.
WorkSession session(Instant start, double elapsedSeconds, double pausedSeconds = 0);

/// A state whose history is one block of these sessions.
QuillmereState stateWith(std::vector<WorkSession> sessions);

/// A text of characters that are special in a format, in every place that a person can write to. No backslash
/// in it has an n behind it: some parsers of calendars take an escaped backslash and an n for a line break.
QuillmereState hostileState();
extern const std::string hostileText;

/// The focus of each stretch: "2026-11-15 1500, 2026-11-16 60".
std::string focusOf(const LookBack& look, Unit unit);

}  // namespace quillmere::test
