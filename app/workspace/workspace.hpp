// The three files of one person, and the order in which a run reads and writes them.
#pragma once

#include "base/reach.hpp"
#include "base/refusal.hpp"
#include "workspace/catching_up.hpp"
#include "workspace/directory_lock.hpp"
#include "workspace/forgetting.hpp"
#include "workspace/saving.hpp"
#include "workspace/situation.hpp"
#include "workspace/state_lock.hpp"
#include "workspace/undo_place.hpp"
#include "workspace/versions.hpp"
#include "workspace/widget_place.hpp"

#include <quillmere/records/instant.hpp>
#include <quillmere/records/quillmere_state.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::workspace {

/// Changes a state; refuses by throwing.
using Operation = std::function<void(QuillmereState&, Instant now)>;

/// Receives the events that a call recorded.
using EventReport = std::function<void(const std::vector<Event>&)>;

/// The operation was applied and the state saved, but a summary could not be written.
class ChangeSaved : public base::Refusal {
public:
    using base::Refusal::Refusal;
};

/// How a change is made. The defaults are those for a person's command.
struct ChangeManner {
    std::chrono::milliseconds patience = DirectoryLock::usualPatience;  ///< longest wait for the lock
    /// Whether the state before the operation is kept as a version, as it is before recorded events.
    Keeping keeping = Keeping::ifPossible;
    /// What the operation looks at and changes. Within the present it may add a finished block, ask and
    /// answer; what lies beyond is checked and kept, byte for byte.
    base::Reach reach = base::Reach::years;
    /// Called once the operation is saved, still under the lock. When it throws `std::system_error`, that
    /// becomes a warning.
    std::function<void()> afterSave = nullptr;
};

class Workspace {
public:
    /// All three files in one directory. Versions, drafts and notices are kept in `stateHome`; nowhere when
    /// it is empty.
    static Workspace in(const std::filesystem::path& directory, Clock clock,
                        const std::filesystem::path& stateHome = {});
    /// The state where this user's applications keep their data, the widget's summary in the shared
    /// container. Throws Refusal when the environment names no such directory.
    static Workspace ofThisUser(Clock clock, const std::filesystem::path& stateHome = {});

    const std::filesystem::path& directory() const { return states_.directory(); }

    /// The directory for versions, drafts and notices of these files; empty when nothing is kept
    /// (workspace::stateDirectory).
    const std::filesystem::path& stateDirectory() const { return stateDirectory_; }

    const Versions& versions() const { return places_.versions; }

    UndoPlaceFile undoPlace() const { return UndoPlaceFile(stateDirectory_); }

    /// The situation now. Neither locks nor writes. With another reach than the years, the state has of its
    /// history only the blocks within reach and of its questions only the open ones, and what lies beyond is
    /// not checked (statefile::readPresent); unless the file is not as this program writes it, which shows
    /// all.
    Situation look(base::Reach reach = base::Reach::years) const;

    /// The widget's summary as it was last written, or the empty one (workspace::widgetSummary).
    WidgetSnapshot widgetSnapshot(Instant now) const;

    /// The agent's summary as it was last written (workspace::agentSummary).
    std::optional<AgentSnapshot> agentSnapshot() const;

    /// The directory of the widget's summary, whether or not it exists: to watch it.
    std::filesystem::path widgetPlace() const { return places_.widget.path(); }

    /// Under the lock: loads the state and catches up. If events happened, saves and calls `report`. Then
    /// applies `operation`, if there is one, and saves. Without an operation and without events, writes the
    /// summaries again when they do not agree with the state.
    ///
    /// When the operation throws, its change is not written and no directory is created. A file that cannot
    /// be loaded, or is outside the limits, is never overwritten. What each save replaces is kept as a
    /// version; a failure to keep it becomes the warning of the situation.
    ///
    /// Throws Refusal (`fileError`) when the state file is a symbolic link or could not be written, and when
    /// it was saved and another file could not be written; then as ChangeSaved if the operation had been
    /// applied. Throws `std::bad_alloc`; MemoryRanOutOnceSaved once the operation is saved.
    Situation change(const EventReport& report, const Operation& operation,
                     const ChangeManner& manner = {}) const;

    /// Under the lock: replaces the state by a version, caught up, and saves; `updatedAt` is the present, and
    /// never before that of the replaced state. Calls `report` if events happened since the version.
    ///
    /// The replaced state is kept as a version first, also when it cannot be decoded. Throws, and changes
    /// nothing, when it cannot be kept or the version cannot be read; Refusal (`invalidRequest`) when the
    /// version was deleted meanwhile.
    Situation restore(const Version& version, const EventReport& report) const;

    /// Removes a finished block from the versions, under the lock (workspace::forget).
    Forgotten forgetInVersions(const Identifier& block) const;

    /// Compresses one version (Versions::compressOne), unless another program holds the lock. Where that
    /// fails the version stays whole. For long-lived programs, when nobody waits.
    void compressVersion() const;

    Instant now() const;

private:
    Workspace(const std::filesystem::path& directory, WidgetPlace widget, Clock clock,
              const std::filesystem::path& stateHome);

    /// A state, and what is kept of its file when it is only the present.
    struct Loaded {
        QuillmereState state;
        std::optional<statefile::KeptPart> kept;
    };

    /// All of the file is checked.
    Loaded loadToChange(base::Reach reach) const;
    /// Checks the limits of a loaded state and catches up.
    Situation caughtUp(QuillmereState state) const;
    /// Creates the directory where it is missing, and locks it.
    StateLock lock(std::chrono::milliseconds patience = DirectoryLock::usualPatience) const;
    /// Saves an initial state unless there is a state.
    void makeFirstState() const;
    /// Saves and reports the events of the situation.
    void recordEvents(Situation& situation, const ReplacedState& replaced, const EventReport& report) const;
    ReplacedState stateToReplace(Instant savedAt, Keeping keeping, StateLock& lock) const;
    /// `updatedAt` of the state file; the present when the file is missing or cannot be decoded.
    Instant savedAt() const;

    StateStore states_;
    std::filesystem::path stateDirectory_;
    FilePlaces places_;
    Clock clock_;
};

}  // namespace quillmere::workspace
