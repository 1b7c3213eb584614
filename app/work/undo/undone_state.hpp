// The state that undoing or redoing a change leads to.
#pragma once

#include "work/changes/change.hpp"

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// Where a change comes from. A change of the clock is undone only together with the change before it.
enum class ChangeOrigin {
    clock,      ///< a timer ran out or a block was due; or nothing but `updatedAt` changed
    questions,  ///< questions were asked or answered, and nothing else
    work,       ///< anything else
};

/// The origin of what happened between two versions. An agent's question leaves no version, so beside an
/// event of the clock it is no change of its own.
ChangeOrigin originOf(const Changes& changes);

/// A change as the two states around it.
struct TakenChange {
    const QuillmereState& before;
    const QuillmereState& after;
    ChangeOrigin origin;
};

/// The present without the change. After a change of questions, these are set back one by one, and the work
/// stays as it is. After any other, the work is that of `before`, and questions and answers stay as they are.
/// Time plays no part: `updatedAt` comes with the work, and no pause is added.
QuillmereState withoutChange(const TakenChange& change, const QuillmereState& present);

/// Adds the time between the two instants to the pauses of a running session, but no more than it has run.
void countAsPause(QuillmereState& state, Instant from, Instant now);

}  // namespace quillmere::work
