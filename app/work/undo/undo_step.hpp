// Undo and redo: the step back from the last change, and the step forward to a change that was undone.
#pragma once

#include "workspace/workspace.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::work {

enum class UndoDirection { undo, redo };

/// A step as it would be taken now.
struct UndoStep {
    UndoDirection direction;
    std::int64_t version;                  ///< the step leads to this version
    std::string changes;                   ///< "review of session 2 saved (14:32)", sanitized
    QuillmereState state;                  ///< as it would be saved, caught up
    std::vector<workspace::Event> events;  ///< happen by themselves after the step
    workspace::UndoPlace place;            ///< before the step
};

/// The next step from the present, which must be caught up to `now`. Undo leads to the version before the
/// last change of the person, and takes back what the clock did since. Redo leads forward until the next
/// change of the person. A running session that the step leads to gets the time between the change and the
/// step as a pause. Versions that cannot be read are passed over.
///
/// The changes in words are all that the step takes back: also those of other programs, and those since
/// versions that are no longer kept. Absent when there is nothing to undo or redo.
std::optional<UndoStep> nextStep(UndoDirection direction, const workspace::Workspace& workspace,
                                 const QuillmereState& present, Instant now);

/// "Undo: review of session 2 saved (14:32)".
std::string offerText(const UndoStep& step);

/// "Undone: review of session 2 saved (14:32)".
std::string doneText(const UndoStep& step);

/// Why there is no step.
std::string noStepText(UndoDirection direction);

/// A change of the workspace that takes a step.
struct UndoChange {
    workspace::Operation operation;
    workspace::ChangeManner manner;
    std::shared_ptr<const UndoStep> step;  ///< as it was taken, once the operation is applied
};

/// For Workspace::change: takes the step if it is still the next one with the same changes. Otherwise
/// refuses (Refusal, `busy`), because the person has agreed to something else. The present is kept as a
/// version, or nothing changes. `workspace` must outlive the result.
UndoChange changeBy(const UndoStep& step, const workspace::Workspace& workspace);

}  // namespace quillmere::work
