// Changing a block that has begun.
#pragma once

#include "amendments/block_texts.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <optional>

namespace quillmere::amendments {

/// An absent member stays as it is. A given member is checked even when it equals the present value.
struct BlockChange {
    BlockTexts texts = {};
    std::optional<double> focusDurationSeconds = {};  ///< of the sessions to come
    std::optional<double> breakDurationSeconds = {};  ///< of the running break too
    std::optional<std::int64_t> cycleCount = {};
};

/// With a block that has begun. A new length of a break is not below what has passed of a running one, whose
/// end is announced again when it lies ahead. The cycle count is above the number of sessions begun; from
/// `blockReview` it leads back to `sessionPlanning`. Throws Refusal elsewhere; for lengths and a count beyond
/// these and the limits; and as `requireOutcomes` does.
void changeBlock(QuillmereState& state, BlockChange change, Instant now);

}  // namespace quillmere::amendments
