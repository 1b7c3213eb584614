// What other programs have changed since a display last looked.
#pragma once

#include "base/text/local_time.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string>

namespace quillmere::work {

/// "Changed elsewhere: focus session 1 ended early at 15:10." The states, which differ, are two looks at the
/// present; what only left its reach meanwhile, or came into it, is not told.
std::string changedElsewhere(QuillmereState before, QuillmereState after, const base::SeenFrom& here);

}  // namespace quillmere::work
