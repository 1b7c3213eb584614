// From the records of a person to the figures of a look back.
#pragma once

#include "figures/look_back.hpp"

namespace quillmere::figures {

/// The look back on a state that has been screened. `today` is the person's; days are those of the time zone
/// of this process. The result points into `state`.
///
/// Where in a session its pauses lay is not recorded. Its focus time is taken to run from its start without
/// them, so across a midnight it is shared out exactly only when there was none.
LookBack statistics(const QuillmereState& state, const Range& range, Day today);

}  // namespace quillmere::figures
