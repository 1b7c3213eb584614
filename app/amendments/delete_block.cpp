#include "amendments/delete_block.hpp"

#include "amendments/refusal.hpp"

#include <algorithm>

namespace quillmere::amendments {

void deleteBlock(QuillmereState& state, const Identifier& block, Instant now)
{
    if (state.currentBlock && state.currentBlock->id == block) {
        refuseHere("This block is not finished, so that it cannot be deleted.");
    }
    const auto found = std::find_if(state.blockHistory.begin(), state.blockHistory.end(),
                                    [&](const Block& finished) { return finished.id == block; });
    if (found == state.blockHistory.end()) {
        throw Refusal("There is no such finished block. Possible: a block of the history.");
    }
    state.blockHistory.erase(found);
    state.updatedAt = now;
}

}  // namespace quillmere::amendments
