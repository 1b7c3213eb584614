// One focus session of a block.
#pragma once

#include <quillmere/records/identifier.hpp>
#include <quillmere/records/instant.hpp>
#include <quillmere/records/session_plan.hpp>
#include <quillmere/records/session_review.hpp>

#include <cstdint>
#include <optional>

namespace quillmere {

struct WorkSession {
    Identifier id;
    std::int64_t number;  ///< within its block, from 1 in order of start
    SessionPlan plan;
    Instant startedAt;
    double plannedDurationSeconds;        ///< fixed when the session starts
    std::optional<Instant> pausedAt;      ///< present exactly while paused
    double accumulatedPausedSeconds;      ///< total of the completed pauses
    std::optional<Instant> endedAt;       ///< present once ended
    std::optional<SessionReview> review;  ///< present once reviewed

    friend bool operator==(const WorkSession&, const WorkSession&) = default;
};

}  // namespace quillmere
