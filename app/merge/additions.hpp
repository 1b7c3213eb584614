// Whether a merge leaves alone what a side has.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::merge {

/// Whether the merged state differs from this side only by finished blocks, questions and answers that it had
/// not: the work under way and every block that the side has are as they were.
bool onlyAdds(const QuillmereState& merged, const QuillmereState& side);

}  // namespace quillmere::merge
