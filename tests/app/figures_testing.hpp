// Sessions for figures and reports.
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

/// A reviewed session of `elapsedSeconds`, pauses included, as the first of its block.
WorkSession session(Instant start, double elapsedSeconds, double pausedSeconds = 0);

/// A state whose history is one block of these sessions.
QuillmereState stateWith(std::vector<WorkSession> sessions);

/// A state with `hostileText` in every text of a session and in the outcome of its block.
QuillmereState hostileState();

/// Markup, control characters, separators and escapes of the export formats. No backslash is followed by an
/// n: some parsers of calendars take an escaped backslash and an n for a line break.
extern const std::string hostileText;

/// The same as tables and calendars show it: U+FFFD in place of control characters and of characters that
/// change the direction of text.
std::string hostileTextInExports();

/// "2026-11-15 1500, 2026-11-16 60": the focus of each period, for comparisons.
std::string focusOf(const LookBack& look, Unit unit);

}  // namespace quillmere::test
