// Backing out of the planning of a block.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

#include <optional>
#include <variant>

namespace quillmere::amendments {

/// What becomes of a scheduled block whose start has passed while it was edited.
struct StartNow {};
struct StartAt {
    Instant start;
};
struct DropBlock {};
using PassedStart = std::variant<StartNow, StartAt, DropBlock>;

/// In `blockPlanning`. When nothing was scheduled: `idle` without a block; the plan of a next session and the
/// break are cleared. When a scheduled block was being edited: `idle` with that block as it was, waiting for
/// its start. When that start has come meanwhile, `choice` decides: the block begins, waits for another
/// start, or is dropped; a choice plays no part before. Throws Refusal elsewhere, without the choice that is
/// needed, and for another start that is not to come.
void backOut(QuillmereState& state, const std::optional<PassedStart>& choice, Instant now);

}  // namespace quillmere::amendments
