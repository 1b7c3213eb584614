#include "amendments/reset.hpp"

#include "amendments/possible.hpp"
#include "amendments/refusal.hpp"
#include "amendments/standing_block.hpp"

namespace quillmere::amendments {

void reset(QuillmereState& state, Instant now)
{
    if (!isPossible(Kind::reset, state)) {
        refuseHere("The work can go on from here, so that nothing has to be reset.");
    }
    leaveBlock(state, now);
}

}  // namespace quillmere::amendments
