// The plan of the next session, before the person changes it.
#pragma once

#include <quillmere/records/quillmere_state.hpp>

namespace quillmere::work {

/// The saved plan; without one a blank plan with a new identifier.
inline SessionPlan nextPlan(const QuillmereState& state)
{
    return state.plannedNextSession.value_or(SessionPlan::blank(Identifier::random()));
}

}  // namespace quillmere::work
