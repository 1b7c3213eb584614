// The race for what is under way: a state has one current block, and two copies may have one each.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::merge {

struct UnderWay {
    const QuillmereState* from;   ///< the side whose work goes on; null when none does
    const QuillmereState* loser;  ///< the side whose live block gives way to another; null when none does
};

/// Which side's work goes on, by the first of these that decides:
///
/// - A block that the other side has in its history is out: finished there, or set aside there with all
///   of its sessions and reviews.
/// - A block goes before none. With none on either side: the later end of a finished block, then planning.
/// - Of two blocks: begun before waiting for its start, then the later start of a session or a break,
///   then the identifier. The other one loses.
/// - Of two copies of one block: begun; the other side's session is over here; more sessions reviewed;
///   then the phase, in the order in which the engine goes through them from one review to the next; then
///   the session, the break and the next plan.
///
/// The time of the file does not count, since a question moves it. Only between two copies of a block that
/// waits for its start it does: an edit leaves no other trace.
UnderWay underWay(const QuillmereState& a, const QuillmereState& b);

}  // namespace quillmere::merge
