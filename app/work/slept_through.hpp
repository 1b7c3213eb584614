// A sleep of the computer in a focus session: it may have been no focus.
#pragma once

#include "base/system/sleep_detector.hpp"
#include "base/text/local_time.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <string>

namespace quillmere::work {

/// Stands until the person has changed the session's end or pauses.
struct SleptThrough {
    Identifier session;
    base::Sleep sleep;  ///< as far as it fell into the session
    bool isOver;        ///< the time of the session ran out meanwhile
    double pausedSeconds;
    std::optional<Instant> endedAt;

    friend bool operator==(const SleptThrough&, const SleptThrough&) = default;
};

/// Absent unless a focus session ran, or waits for its review after its time ran out in the sleep. A session
/// that was paused slept as well.
std::optional<SleptThrough> sleptThrough(const base::Sleep& sleep, const QuillmereState& state);

/// Whether the session is still as it was when the computer woke up.
bool stands(const SleptThrough& slept, const QuillmereState& state);

/// "The computer slept from 14:10 to 14:40."
std::string sleepText(const SleptThrough& slept, const base::SeenFrom& here);

/// The commands that correct it: "quillmere away --from 14:10 --to 14:40 makes it a pause; quillmere end --at
/// 14:10 ends the session then."
std::string sleepCommands(const SleptThrough& slept, Instant now);

}  // namespace quillmere::work
