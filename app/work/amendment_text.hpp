// Refusals of amendments in words, for every surface.
#pragma once

#include "amendments/refusal.hpp"

#include "base/text/hours.hpp"
#include "workspace/workspace.hpp"

#include <string>

namespace quillmere::work {

/// The message, with what is possible: times or lengths to the second, which are accepted as they are written
/// ("… Possible times: 15:00:05 to 15:10:00."), or where the work stands and the commands that fit there.
std::string refusalText(const amendments::Refusal& refusal, const workspace::Situation& situation,
                        base::Hours hours);

}  // namespace quillmere::work
