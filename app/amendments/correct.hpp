// Correcting the record of a session that has ended, or of a finished block.
#pragma once

#include "amendments/block_texts.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <optional>

namespace quillmere::amendments {

/// A member that is absent stays as it is. Plan and review keep the identifiers of those that they replace.
struct SessionCorrection {
    std::optional<SessionPlan> plan = {};
    std::optional<SessionReview> review = {};
    std::optional<Instant> endedAt = {};
};

/// Corrects a session that has ended, of a finished block or of the current one. Its ratings are 1 through 5,
/// and the outcome that it serves is one of its block. The end can become earlier, not before the start of
/// the session plus its pauses. A session that waits for its review gets it as a step of the work, not here.
/// Throws Refusal otherwise, and for a session that does not exist.
void correctSession(QuillmereState& state, const Identifier& block, const Identifier& session,
                    SessionCorrection correction, Instant now);

/// A member that is absent stays as it is.
struct BlockCorrection {
    BlockTexts texts = {};
    std::optional<BlockReview> reflection = {};
};

/// Corrects a finished block. Throws Refusal for a block that is not in the history, and as `requireOutcomes`
/// does.
void correctBlock(QuillmereState& state, const Identifier& block, BlockCorrection correction, Instant now);

}  // namespace quillmere::amendments
