// A state as it was loaded, brought up to the present.
#pragma once

#include "workspace/catching_up.hpp"

#include <quillmere/records/instant.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <vector>

namespace quillmere::workspace {

struct Situation {
    QuillmereState state;
    std::vector<Event> events;  ///< happened by themselves since the state was saved
    Instant now;                ///< in whole seconds, as files keep instants
    /// A problem beside the change that was made, for the person; usually empty.
    std::string warning = {};
};

}  // namespace quillmere::workspace
