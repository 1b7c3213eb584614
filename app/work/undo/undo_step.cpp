#include "work/undo/undo_step.hpp"

#include "base/text/local_time.hpp"
#include "work/changes/change.hpp"
#include "work/changes/change_text.hpp"
#include "work/undo/undone_state.hpp"
#include "workspace/loading.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/state_store.hpp>

#include <algorithm>
#include <system_error>
#include <utility>

namespace quillmere::work {
namespace {

using workspace::UndoPlace;
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

/// A version, and the state that replaced it.
struct ReplacedVersion {
    std::int64_t number;
    QuillmereState before;
    QuillmereState after;
    ChangeOrigin origin;
};

bool isPause(const Change& change)
{
    return change.kind == ChangeKind::pausesShortened || change.kind == ChangeKind::pauseAdded;
}

/// What a person did, of the changes between two versions: questions stay when work is undone, and a pause
/// beside another change was added by an earlier step.
Changes ownChanges(const QuillmereState& before, const QuillmereState& after, ChangeOrigin origin)
{
    Changes changes = changesBetween(before, after);
    if (origin == ChangeOrigin::questions) {
        return {};  // some of them may be an agent's
    }
    std::erase_if(changes,
                  [](const Change& change) { return originOf({change}) == ChangeOrigin::questions; });
    if (!std::all_of(changes.begin(), changes.end(), isPause)) {
        std::erase_if(changes, isPause);
    }
    return changes;
}

void addMissing(Changes& changes, const Changes& others)
{
    for (const Change& other : others) {
        if (std::find(changes.begin(), changes.end(), other) == changes.end()) {
            changes.push_back(other);
        }
    }
}

bool isNothing(const Changes& changes)
{
    return std::all_of(changes.begin(), changes.end(),
                       [](const Change& change) { return change.kind == ChangeKind::savedAgain; });
}

/// Finds steps in the list of versions; reads only the versions that it needs.
class Steps {
public:
    Steps(const workspace::Workspace& workspace, const QuillmereState& present, Instant now)
        : versions_(workspace.versions().list()),
          present_(present),
          saved_(workspace::load(StateStore(workspace.directory(), StateStore::renameReplacing))),
          now_(now)
    {
        place_ = stillValid(workspace.undoPlace().read());
        addedTo_ = addedTo();
    }

    std::optional<UndoStep> undo() const
    {
        for (std::size_t index = 0; index < versions_.size(); ++index) {
            if (place_.isUndone(versions_[index].number)) {
                continue;
            }
            const std::optional<ReplacedVersion> replaced = at(index);
            if (!replaced || replaced->origin == ChangeOrigin::clock) {
                continue;
            }
            if (std::optional<UndoStep> step = stepTo(*replaced, UndoDirection::undo)) {
                return step;
            }
        }
        return std::nullopt;
    }

    std::optional<UndoStep> redo() const
    {
        const std::optional<ReplacedVersion> replaced =
            place_.redoable.empty() ? std::nullopt : numbered(place_.redoable.back());
        return replaced ? stepTo(*replaced, UndoDirection::redo) : std::nullopt;
    }

private:
    /// Nothing of a place among other versions than these, and no way forward after another change.
    UndoPlace stillValid(UndoPlace place) const
    {
        if (versions_.empty() || versions_.front().number < place.newest) {
            return {};
        }
        const auto isByClock = [&](const Version& version) {
            const std::optional<ReplacedVersion> replaced = numbered(version.number);
            return replaced && replaced->origin == ChangeOrigin::clock;
        };
        const auto known = std::find_if(versions_.begin(), versions_.end(), [&](const Version& version) {
            return version.number <= place.newest;
        });
        if (!std::all_of(versions_.begin(), known, isByClock)) {
            place.redoable.clear();
            place.target = 0;
        }
        return place;
    }

    std::optional<ReplacedVersion> numbered(std::int64_t number) const
    {
        for (std::size_t index = 0; index < versions_.size(); ++index) {
            if (versions_[index].number == number) {
                return at(index);
            }
        }
        return std::nullopt;
    }

    std::optional<ReplacedVersion> at(std::size_t index) const
    {
        std::optional<QuillmereState> before = readState(versions_[index]);
        if (!before) {
            return std::nullopt;
        }
        std::optional<QuillmereState> after = index == 0 ? std::nullopt : readState(versions_[index - 1]);
        if (!after) {
            after = withoutAddedPause(saved_);
        }
        const ChangeOrigin origin = originOf(changesBetween(*before, *after));
        return ReplacedVersion{.number = versions_[index].number,
                               .before = *std::move(before),
                               .after = *std::move(after),
                               .origin = origin};
    }

    /// Absent when the step would change nothing.
    std::optional<UndoStep> stepTo(const ReplacedVersion& replaced, UndoDirection direction) const
    {
        const bool isUndo = direction == UndoDirection::undo;
        QuillmereState state = withoutChange(
            {.before = replaced.before, .after = replaced.after, .origin = replaced.origin}, present_);
        if (isNothing(changesBetween(state, present_))) {
            return std::nullopt;
        }
        std::string changes = isUndo ? textOfUndo(replaced, state) : textOfRedo(replaced, state);
        if (replaced.origin == ChangeOrigin::work) {
            countAsPause(state, replaced.after.updatedAt, now_);
        }
        // Before `updatedAt` changes: catchUp takes no timer as run out before it.
        std::vector<workspace::Event> events = workspace::catchUp(state, now_);
        state.updatedAt = std::max(now_, present_.updatedAt);
        return UndoStep{.direction = direction,
                        .version = replaced.number,
                        .changes = std::move(changes),
                        .state = std::move(state),
                        .events = std::move(events),
                        .place = place_};
    }

    /// The change undone, and all others since its version. Of those, another program may have made some.
    std::string textOfUndo(const ReplacedVersion& replaced, const QuillmereState& state) const
    {
        Changes changes = ownChanges(replaced.before, replaced.after, replaced.origin);
        Changes others = changesBetween(state, withoutAddedPause(present_));
        std::erase_if(others,
                      [](const Change& change) { return change.kind == ChangeKind::pausesShortened; });
        addMissing(changes, others);
        return textOf(changes) + " (" + base::localTextSeenFrom(now_, replaced.after.updatedAt) + ")";
    }

    /// The change that was undone, and all others that lead from the present to its state.
    std::string textOfRedo(const ReplacedVersion& replaced, const QuillmereState& state) const
    {
        Changes changes = ownChanges(replaced.after, replaced.before, replaced.origin);
        Changes others = changesBetween(present_, state);
        std::erase_if(others, isPause);
        addMissing(changes, others);
        return textOf(changes) + " (undone " + base::localTextSeenFrom(now_, replaced.after.updatedAt) + ")";
    }

    std::string textOf(const Changes& changes) const
    {
        std::string text;
        for (const Change& change : changes) {
            text += (text.empty() ? "" : "; ") + changeText(change, now_);
        }
        return text;
    }

    /// The session to which the last step may have added a pause, as it was before.
    std::optional<WorkSession> addedTo() const
    {
        for (const Version& version : versions_) {
            const auto state = version.number == place_.target ? readState(version) : std::nullopt;
            if (state && state->currentSession()) {
                return *state->currentSession();
            }
        }
        return std::nullopt;
    }

    /// The pause that the last step added is no change of the person.
    QuillmereState withoutAddedPause(QuillmereState state) const
    {
        const WorkSession* const session = state.currentSession();
        if (session && addedTo_ && session->id == addedTo_->id) {
            state.currentBlock->sessions.back().accumulatedPausedSeconds = addedTo_->accumulatedPausedSeconds;
        }
        return state;
    }

    std::vector<Version> versions_;
    const QuillmereState& present_;
    QuillmereState saved_;  ///< the present before it was caught up
    Instant now_;
    UndoPlace place_;
    std::optional<WorkSession> addedTo_;
};

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
    UndoPlace place = step.place;
    const std::int64_t kept = workspace.versions().list().front().number;
    if (step.direction == UndoDirection::undo) {
        place.noteUndo(step.version, kept);
    } else {
        place.noteRedo(kept);
    }
    workspace.undoPlace().write(place);
}

}  // namespace

std::optional<UndoStep> nextStep(UndoDirection direction, const workspace::Workspace& workspace,
                                 const QuillmereState& present, Instant now)
{
    const Steps steps(workspace, present, now);
    return direction == UndoDirection::undo ? steps.undo() : steps.redo();
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
                *taken = stillAgreed(*taken, nextStep(taken->direction, workspace, state, now));
                state = taken->state;
            },
        .manner = {.keeping = workspace::Keeping::necessarily,
                   .afterSave = [taken, &workspace] { noteStep(*taken, workspace); }},
        .step = taken,
    };
}

}  // namespace quillmere::work
