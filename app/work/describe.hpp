// What happened between two states, in sentences.
#pragma once

#include "base/text/local_time.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <string>
#include <vector>

namespace quillmere::work {

/// A sentence for each change from one state to the other, in the order of the work, without capital and full
/// stop: "review of session 2 saved", "block scheduled for 14:30: Chapter one". None for equal states, at
/// least one for states that differ. Local times are as short as they are clear at the time of `after`. Both
/// states must be within the limits of workspace::requireUsable.
std::vector<std::string> describe(const QuillmereState& before, const QuillmereState& after);

/// The same as the rest of one sentence: "focus session 1 ended early at 15:10; break begun at 15:12." Names
/// the first few changes and counts the others. The states differ.
std::string describeInASentence(const QuillmereState& before, const QuillmereState& after,
                                const base::SeenFrom& here);

/// The sentences of a way back.
struct WayBack {
    std::vector<std::string> wouldGo;
    std::vector<std::string> wouldComeBack;
};

/// What going back from `present` to an earlier state would do: the changes since that would go, and those
/// that were undone since and would come back. Both are empty when the states differ in `updatedAt` at most.
/// Local times are as short as they are clear at `now`.
WayBack describeWayBack(const QuillmereState& earlier, const QuillmereState& present, Instant now);

}  // namespace quillmere::work
