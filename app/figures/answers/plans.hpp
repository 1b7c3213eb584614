// Whether plans came true: sessions and time, planned and done.
#pragma once

#include "figures/look_back.hpp"

#include <cstdint>
#include <vector>

namespace quillmere::figures {

/// A block that began in the range, with all its sessions, also those after the range.
struct BlockPlan {
    const Block* block;  ///< points into the state
    Day day;             ///< on which its first session started
    std::int64_t plannedSessions;
    std::int64_t doneSessions;  ///< ended ones
    Completions completions;
    double plannedSeconds;  ///< of the ended sessions whose time is known
    double workedSeconds;   ///< of the same sessions
    bool isFinished;
    bool isFinishedEarly;  ///< with fewer sessions than were planned
};

struct Plans {
    std::vector<BlockPlan> blocks = {};  ///< the newest first
    std::int64_t finishedBlocks = 0;
    std::int64_t finishedEarly = 0;
    std::int64_t plannedSessions = 0;  ///< of the finished blocks
    std::int64_t doneSessions = 0;     ///< of the finished blocks
    // Of the sessions of the look back. A difference of less than a minute is none.
    std::int64_t longerSessions = 0;   ///< than planned
    std::int64_t shorterSessions = 0;  ///< than planned
    double overSeconds = 0;            ///< what the longer ones took beyond their plan
    double underSeconds = 0;           ///< what the shorter ones lacked
};

Plans plansOf(const LookBack& look);

}  // namespace quillmere::figures
