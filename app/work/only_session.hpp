// The review of a block's only session, which closes the block.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// Whether the session that waits for its review is the only one that its block has. Its review and the
/// reflection on the block are then given together.
bool isOnlySessionInReview(const QuillmereState& state);

/// Saves both, which finishes the block. Throws WorkflowError for any other session.
void finishOnlySession(QuillmereState& state, SessionReview review, BlockReview reflection, Instant now);

}  // namespace quillmere::work
