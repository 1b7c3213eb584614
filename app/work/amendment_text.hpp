// Refusals of amendments in words, for every surface.
#pragma once

#include "amendments/refusal.hpp"

#include <quillmere/records/instant.hpp>

#include <string>

namespace quillmere::work {

/// The message, with the times or lengths that are possible, to the second: "… Possible times: 15:00:05 to
/// 15:10:00." The times are accepted as they are written.
std::string refusalText(const amendments::Refusal& refusal, Instant now);

}  // namespace quillmere::work
