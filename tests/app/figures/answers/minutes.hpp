// Sessions minute by minute, for figures that are computed in a second way.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace quillmere::test {

/// The seeds of the histories that the answers are checked with.
inline constexpr unsigned seeds[] = {1, 2, 3, 4};

/// All blocks, the current one included.
std::vector<Block> blocksIn(const QuillmereState& state);

/// The minutes that a session was worked in, taken to come first and its pauses last. None for a session that
/// ends before it starts.
int minutesOf(const WorkSession& session);

/// Calls `visit` with the local date and time of each such minute of all ended sessions.
void forEachMinute(const QuillmereState& state, const std::function<void(const std::tm&)>& visit);

/// "2026-11-15", of a local time in days that begin at this hour.
std::string dateOf(std::tm time, int dayBeginsAtHour);
std::string dateOf(Instant instant, int dayBeginsAtHour);

/// "16:00", local.
std::string clockOf(Instant instant);

}  // namespace quillmere::test
