// Events in words.
#pragma once

#include "workspace/catching_up.hpp"

#include <string>

namespace quillmere::work {

/// A sentence for the person, with the local time as short as it is clear at `now`.
std::string eventText(const workspace::Event& event, Instant now);

}  // namespace quillmere::work
