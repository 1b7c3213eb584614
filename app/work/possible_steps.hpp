// What a person may do next.
#pragma once

#include <quillmere/engine/transition.hpp>
#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// Whether the step may be taken now: the map of the workflow accepts it, and the state has what else it
/// takes. Of what a person still has to give, such as a plan, nothing is asked here.
bool isPossible(Step step, const QuillmereState& state);

}  // namespace quillmere::work
