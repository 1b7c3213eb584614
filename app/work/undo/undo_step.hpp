// Undo and redo: the step back from the last change, and the step forward to a change that was undone.
#pragma once

#include "work/undo/next_step.hpp"
#include "workspace/workspace.hpp"

#include <quillmere/records/quillmere_state.hpp>

#include <memory>
#include <optional>
#include <string>

namespace quillmere::work {

/// The next step among the versions that the workspace keeps.
std::optional<UndoStep> nextStep(UndoDirection direction, const workspace::Workspace& workspace,
                                 const QuillmereState& present, const base::SeenFrom& here);

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
