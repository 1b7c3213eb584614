// The next step of undo or redo, found among earlier states: a function of values, without files.
#pragma once

#include "base/text/local_time.hpp"
#include "workspace/catching_up.hpp"
#include "workspace/undo_place.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::work {

enum class UndoDirection { undo, redo };

/// A step as it would be taken now.
struct UndoStep {
    UndoDirection direction;
    std::int64_t version;                         ///< the step leads to this version
    std::string changes;                          ///< "review of session 2 saved (14:32)", sanitized
    QuillmereState state;                         ///< as it would be saved, caught up
    std::vector<workspace::Event> events;         ///< happen by themselves after the step
    workspace::UndoPlace place;                   ///< before the step
    base::Hours hours = base::Hours::twentyFour;  ///< of the times in `changes`
};

/// The earlier states among which a step is found. Only those that the search needs are read.
struct UndoHistory {
    std::vector<std::int64_t> versions;  ///< their numbers, the highest first
    /// The state of a version; absent when there is no such version, or it cannot be read.
    std::function<std::optional<QuillmereState>(std::int64_t number)> stateOf;
    workspace::UndoPlace place;  ///< as it was noted last
    QuillmereState saved;        ///< the present before it was caught up
};

/// The next step from the present, which must be caught up. Undo leads to the version before the
/// last change of the person, and takes back what the clock did since. Redo leads forward until the next
/// change of the person. A running session that the step leads to gets the time between the change and the
/// step as a pause. Versions that cannot be read are passed over.
///
/// The changes in words are all that the step takes back: also those of other programs, and those since
/// versions that are no longer kept. Absent when there is nothing to undo or redo.
std::optional<UndoStep> nextStep(UndoDirection direction, const UndoHistory& history,
                                 const QuillmereState& present, const base::SeenFrom& here);

/// The place after the step, whose save kept the state before it as the version `kept`.
workspace::UndoPlace placeAfter(const UndoStep& step, std::int64_t kept);

}  // namespace quillmere::work
