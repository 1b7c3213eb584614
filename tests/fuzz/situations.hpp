// The initial states of the fuzz targets.
#pragma once

#include <quillmere/records/base/enumeration.hpp>

#include <cstddef>

#include "support/sample_states.hpp"

namespace quillmere::test {

inline constexpr std::size_t situationCount = 11;

/// One of `situationCount` states: each workflow state, full states, a waiting block, and a new state.
inline QuillmereState situation(std::size_t which)
{
    switch (which) {
        case 8: return fullState();
        case 9: return stateWithScheduledBlock();
        case 10: return QuillmereState::initial(moment);
        default: return stateIn(allCases<WorkflowState>().at(which));
    }
}

}  // namespace quillmere::test
