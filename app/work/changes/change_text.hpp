// Changes in words, for every surface.
#pragma once

#include "base/text/local_time.hpp"
#include "work/changes/change.hpp"

#include <string>

namespace quillmere::work {

/// A few words that begin without a capital and end without a full stop, on one line and sanitized, with
/// local times as short as they are clear at the present: "review of session 2 saved", "block scheduled for
/// 14:30: Chapter one". A long text at their end is cut.
std::string changeText(const Change& change, const base::SeenFrom& here);

/// Whether the change left something that going back takes away. One that only took something away, or whose
/// words say too little, has not.
bool leavesSomething(ChangeKind kind);

}  // namespace quillmere::work
