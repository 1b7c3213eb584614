// A block and its sessions, told whole.
#pragma once

#include "base/text/local_time.hpp"
#include "work/recall/passage.hpp"

#include <quillmere/records/block.hpp>

#include <string_view>
#include <vector>

namespace quillmere::work {

/// All that is recorded of the block: its purpose, the plan and the review of each session, the reflection.
Recall accountOf(const Block& block, const base::SeenFrom& here);

/// One session of it.
Passage accountOf(const WorkSession& session, const Block& block, const base::SeenFrom& here);

/// The label of an outcome in these facts.
inline constexpr std::string_view outcomeLabel = "Outcome";

/// The titles of its outcomes.
std::vector<Fact> titlesOf(const Block& block);

/// Time in focus without pauses, of the sessions whose time is known.
double focusSecondsOf(const Block& block);

/// Each outcome, and below it its sessions with their results; last the sessions that serve none.
std::vector<Fact> outcomesWithSessions(const Block& block);

}  // namespace quillmere::work
