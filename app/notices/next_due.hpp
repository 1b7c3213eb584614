// When a watch has something to do by the clock alone.
#pragma once

#include "workspace/situation.hpp"

#include <quillmere/records/instant.hpp>

#include <optional>
#include <vector>

namespace quillmere::notices {

/// The next instant at which an event may happen, or a notice ahead of it or a reminder may come due; within
/// a second of it. Absent while nothing counts.
std::optional<Instant> nextDue(const workspace::Situation& situation,
                               const std::vector<double>& reminderSeconds);

}  // namespace quillmere::notices
