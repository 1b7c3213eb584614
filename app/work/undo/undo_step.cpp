#include "work/undo/undo_step.hpp"

#include "workspace/loading.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <cstdint>
#include <system_error>
#include <utility>
#include <vector>

namespace quillmere::work {
namespace {

using workspace::Version;

/// Absent when the version cannot be read.
std::optional<QuillmereState> readState(const Version& version)
{
    try {
        return workspace::stateOf(version);
    } catch (const CodingError&) {
    } catch (const base::Refusal&) {
    } catch (const std::system_error&) {
    }
    return std::nullopt;
}

/// Absent when there is no version with this number, or it cannot be read.
std::optional<QuillmereState> stateNumbered(std::int64_t number, const std::vector<Version>& versions)
{
    const auto found = std::find_if(versions.begin(), versions.end(),
                                    [number](const Version& version) { return version.number == number; });
    return found == versions.end() ? std::nullopt : readState(*found);
}

UndoHistory historyOf(const workspace::Workspace& workspace)
{
    std::vector<Version> versions = workspace.versions().list();
    std::vector<std::int64_t> numbers;
    for (const Version& version : versions) {
        numbers.push_back(version.number);
    }
    const StateStore store(workspace.directory(), StateStore::renameReplacing);
    return {.versions = std::move(numbers),
            .stateOf = [versions = std::move(versions)](
                           std::int64_t number) { return stateNumbered(number, versions); },
            .place = workspace.undoPlace().read(),
            .saved = workspace::load(store)};
}

/// The work may have changed while the person was asked.
UndoStep stillAgreed(const UndoStep& agreed, std::optional<UndoStep> next)
{
    if (!next || next->version != agreed.version || next->changes != agreed.changes) {
        throw base::Refusal(base::Refusal::Kind::busy,
                            "The work has changed since you were asked, and nothing was undone or redone. "
                            "The next time you are asked about the change that is the last one now.");
    }
    return *std::move(next);
}

/// To be called under the lock, once the step is saved.
void noteStep(const UndoStep& step, const workspace::Workspace& workspace)
{
    const std::int64_t kept = workspace.versions().list().front().number;
    workspace.undoPlace().write(placeAfter(step, kept));
}

}  // namespace

std::optional<UndoStep> nextStep(UndoDirection direction, const workspace::Workspace& workspace,
                                 const QuillmereState& present, const base::SeenFrom& here)
{
    return nextStep(direction, historyOf(workspace), present, here);
}

std::string offerText(const UndoStep& step)
{
    return (step.direction == UndoDirection::undo ? "Undo: " : "Redo: ") + step.changes;
}

std::string doneText(const UndoStep& step)
{
    return (step.direction == UndoDirection::undo ? "Undone: " : "Done again: ") + step.changes;
}

std::string noStepText(UndoDirection direction)
{
    return direction == UndoDirection::undo
               ? "There is no change to undo: no version from before it is kept."
               : "There is nothing to redo: nothing was undone since the last change.";
}

UndoChange changeBy(const UndoStep& step, const workspace::Workspace& workspace)
{
    const auto taken = std::make_shared<UndoStep>(step);
    return {
        .operation =
            [taken, &workspace](QuillmereState& state, Instant now) {
                *taken =
                    stillAgreed(*taken, nextStep(taken->direction, workspace, state, {now, taken->hours}));
                state = taken->state;
            },
        .manner = {.keeping = workspace::Keeping::necessarily,
                   .afterSave = [taken, &workspace] { noteStep(*taken, workspace); }},
        .step = taken,
    };
}

}  // namespace quillmere::work
