// The keys of the actions.
#pragma once

#include "work/actions.hpp"

namespace quillmere::screen {

/// The key of a step that is taken by an action.
char keyOf(Step step);

/// The action of a key at this place of the workflow, although the engine may refuse it now; null: none.
const work::Action* actionOn(char key, const workspace::Situation& situation);

}  // namespace quillmere::screen
