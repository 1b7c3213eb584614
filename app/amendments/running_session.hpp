// The arithmetic of a session that runs or has just ended.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>

namespace quillmere::amendments {

/// The first instant at which the session can have ended: its start plus its pauses. Finished pauses are
/// known as a sum only, so it may have ended before one of them.
Instant earliestEnd(const WorkSession& session);

/// Whole seconds of focus at an instant, as the engine's timer counts them, also of a session that has ended
/// and is to run on.
std::int64_t usedSeconds(const WorkSession& session, Instant at);

/// False for a value that is not a number.
inline bool isWithin(double value, double least, double most) { return value >= least && value <= most; }

}  // namespace quillmere::amendments
