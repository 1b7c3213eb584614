// Events in words.
#pragma once

#include "workspace/catching_up.hpp"

#include <string>

namespace quillmere::work {

/// A sentence for the person; the local time has no date when it is on the day of `now`.
std::string eventText(const workspace::Event& event, Instant now);

}  // namespace quillmere::work
