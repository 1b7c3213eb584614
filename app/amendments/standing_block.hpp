// The block in work, and how amendments take it out of work.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::amendments {

/// Whether the current block has begun and is not finished.
bool hasBegunBlock(const QuillmereState& state);

/// Leaves the block without a break and without a plan of its next session.
void clearBetweenSessions(QuillmereState& state) noexcept;

/// Leads to `idle` without a block. A block with sessions goes to the front of the history, completed at
/// `now` unless it says otherwise; one without is discarded. Strong exception guarantee.
void leaveBlock(QuillmereState& state, Instant now);

}  // namespace quillmere::amendments
