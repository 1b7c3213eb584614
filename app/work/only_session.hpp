// The review of a block's only session, which closes the block.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// Whether the review of a block's only session is due. The review and the reflection on the block are then
/// given together.
bool isOnlySessionInReview(const QuillmereState& state);

/// Saves both, which finishes the block. Throws WorkflowError for any other session.
void finishOnlySession(QuillmereState& state, SessionReview review, BlockReview reflection, Instant now);

}  // namespace quillmere::work
