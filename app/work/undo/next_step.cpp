#include "work/undo/next_step.hpp"

#include "base/text/local_time.hpp"
#include "work/changes/change.hpp"
#include "work/changes/change_text.hpp"
#include "work/undo/undone_state.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quillmere::work {
namespace {

using workspace::UndoPlace;

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

/// What a person did, of the changes between two versions. Not the questions: some may be an agent's, and
/// they stay when work is undone. A pause beside another change was added by an earlier step.
Changes ownChanges(const QuillmereState& before, const QuillmereState& after)
{
    Changes changes = changesBetween(before, after);
    std::erase_if(changes,
                  [](const Change& change) { return originOf({change}) == ChangeOrigin::questions; });
    if (!std::all_of(changes.begin(), changes.end(), isPause)) {
        std::erase_if(changes, isPause);
    }
    return changes;
}

bool isSavedAgain(const Change& change) { return change.kind == ChangeKind::savedAgain; }

bool isNothing(const Changes& changes) { return std::all_of(changes.begin(), changes.end(), isSavedAgain); }

void addMissing(Changes& changes, const Changes& others)
{
    for (const Change& other : others) {
        if (std::find(changes.begin(), changes.end(), other) == changes.end()) {
            changes.push_back(other);
        }
    }
    if (!isNothing(changes)) {
        std::erase_if(changes, isSavedAgain);
    }
}

/// Finds steps among the versions.
class Steps {
public:
    Steps(const UndoHistory& history, const QuillmereState& present, const base::SeenFrom& here)
        : history_(history), versions_(history.versions), present_(present), here_(here)
    {
        place_ = stillValid(history.place);
        addedTo_ = addedTo();
    }

    std::optional<UndoStep> undo() const
    {
        for (std::size_t index = 0; index < versions_.size(); ++index) {
            if (place_.isUndone(versions_[index])) {
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
        if (versions_.empty() || versions_.front() < place.newest) {
            return {};
        }
        const auto isByClock = [&](std::int64_t version) {
            const std::optional<ReplacedVersion> replaced = numbered(version);
            return replaced && replaced->origin == ChangeOrigin::clock;
        };
        const auto known = std::find_if(versions_.begin(), versions_.end(),
                                        [&](std::int64_t version) { return version <= place.newest; });
        if (!std::all_of(versions_.begin(), known, isByClock)) {
            place.redoable.clear();
            place.target = 0;
        }
        return place;
    }

    std::optional<ReplacedVersion> numbered(std::int64_t number) const
    {
        const auto found = std::find(versions_.begin(), versions_.end(), number);
        return found == versions_.end() ? std::nullopt
                                        : at(static_cast<std::size_t>(found - versions_.begin()));
    }

    std::optional<ReplacedVersion> at(std::size_t index) const
    {
        std::optional<QuillmereState> before = history_.stateOf(versions_[index]);
        if (!before) {
            return std::nullopt;
        }
        std::optional<QuillmereState> after =
            index == 0 ? std::nullopt : history_.stateOf(versions_[index - 1]);
        if (!after) {
            after = history_.saved;
        }
        if (versions_[index] == place_.newest) {
            after = withoutAddedPause(*std::move(after));
        }
        const ChangeOrigin origin = originOf(changesBetween(*before, *after));
        return ReplacedVersion{.number = versions_[index],
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
            countAsPause(state, replaced.after.updatedAt, here_.now);
        }
        // Before `updatedAt` changes: catchUp takes no timer as run out before it.
        std::vector<workspace::Event> events = workspace::catchUp(state, here_.now);
        state.updatedAt = std::max(here_.now, present_.updatedAt);
        return UndoStep{.direction = direction,
                        .version = replaced.number,
                        .changes = std::move(changes),
                        .state = std::move(state),
                        .events = std::move(events),
                        .place = place_,
                        .hours = here_.hours};
    }

    /// The change undone, and all others since its version. Of those, another program may have made some.
    std::string textOfUndo(const ReplacedVersion& replaced, const QuillmereState& state) const
    {
        Changes changes = ownChanges(replaced.before, replaced.after);
        Changes others = changesBetween(state, withoutAddedPause(present_));
        std::erase_if(others,
                      [](const Change& change) { return change.kind == ChangeKind::pausesShortened; });
        addMissing(changes, others);
        return textOf(changes) + " (" + base::localTextSeenFrom(here_, replaced.after.updatedAt) + ")";
    }

    /// The change that was undone, and all others that lead from the present to its state.
    std::string textOfRedo(const ReplacedVersion& replaced, const QuillmereState& state) const
    {
        Changes changes = ownChanges(replaced.after, replaced.before);
        Changes others = changesBetween(present_, state);
        std::erase_if(others, isPause);
        addMissing(changes, others);
        return textOf(changes) + " (undone " + base::localTextSeenFrom(here_, replaced.after.updatedAt) + ")";
    }

    std::string textOf(const Changes& changes) const
    {
        std::string text;
        for (const Change& change : changes) {
            text += (text.empty() ? "" : "; ") + changeText(change, here_);
        }
        return text;
    }

    /// The session to which the last step may have added a pause, as it was before.
    std::optional<WorkSession> addedTo() const
    {
        const std::optional<QuillmereState> state = history_.stateOf(place_.target);
        return state && state->currentSession() ? std::optional(*state->currentSession()) : std::nullopt;
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

    const UndoHistory& history_;
    const std::vector<std::int64_t>& versions_;  ///< of the history
    const QuillmereState& present_;
    base::SeenFrom here_;
    UndoPlace place_;
    std::optional<WorkSession> addedTo_;
};

}  // namespace

std::optional<UndoStep> nextStep(UndoDirection direction, const UndoHistory& history,
                                 const QuillmereState& present, const base::SeenFrom& here)
{
    const Steps steps(history, present, here);
    return direction == UndoDirection::undo ? steps.undo() : steps.redo();
}

UndoPlace placeAfter(const UndoStep& step, std::int64_t kept)
{
    UndoPlace place = step.place;
    if (step.direction == UndoDirection::undo) {
        place.noteUndo(step.version, kept);
    } else {
        place.noteRedo(kept);
    }
    return place;
}

}  // namespace quillmere::work
