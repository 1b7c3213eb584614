#include "amendments/drop.hpp"

#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/standing_block.hpp"

namespace quillmere::amendments {

void drop(QuillmereState& state, Instant now)
{
    if (!isPossible(Kind::drop, state)) {
        refuseHere("Only a block whose first session has not begun can be dropped.");
    }
    leaveBlock(state, now);
}

}  // namespace quillmere::amendments
