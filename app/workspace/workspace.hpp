// The three files of one person, and the order in which a run touches them.
#pragma once

#include "base/refusal.hpp"
#include "workspace/catching_up.hpp"
#include "workspace/directory_lock.hpp"
#include "workspace/versions.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quillmere::workspace {

/// A state, and what came about by itself before it was looked at.
struct Situation {
    QuillmereState state;
    std::vector<Event> events;
    Instant now;  ///< whole seconds, as files keep them
    /// What the person should hear of, although what was asked has been done; usually empty.
    std::string warning = {};
};

/// What is done to a state; a throw means that it is not done.
using Operation = std::function<void(QuillmereState&, Instant now)>;

/// What was to be done is done and saved, though not everything that follows from it.
class ChangeSaved : public base::Refusal {
public:
    using base::Refusal::Refusal;
};

/// How a change is made; as for the person, unless it says otherwise.
struct ChangeManner {
    std::chrono::milliseconds patience = DirectoryLock::usualPatience;  ///< with others who hold the lock
    bool keepsVersion = true;  ///< of the state before it; of what came about by itself one is kept anyway
};

class Workspace {
public:
    /// All three files in one directory. What is kept beside them is in `stateHome`; nothing is when that
    /// is empty.
    static Workspace in(const std::filesystem::path& directory, Clock clock,
                        const std::filesystem::path& stateHome = {});
    /// The state where this user's applications keep their data, the widget's summary in the shared
    /// container. Throws Refusal when the environment names no such place.
    static Workspace ofThisUser(Clock clock, const std::filesystem::path& stateHome = {});

    const std::filesystem::path& directory() const { return states_.directory(); }

    /// Where versions, drafts and notices of these files are; empty when nothing is kept
    /// (workspace::stateDirectory).
    const std::filesystem::path& stateDirectory() const { return stateDirectory_; }

    Versions versions() const;

    /// The situation now. Neither locks nor writes.
    Situation look() const;

    /// The widget's summary as it was last written, or the empty one.
    WidgetSnapshot widgetSnapshot(Instant now) const;

    /// The directory in which the widget's summary is, or would be once something is saved: to be watched.
    std::filesystem::path widgetPlace() const;

    /// Under the lock: loads and catches up; saves and tells `report` if anything came about. Then
    /// applies `operation`, if there is one, and saves; nothing of it is written when it throws, and no
    /// directory is made. Without one, saves again when a summary is not that of the state, as a run
    /// that was killed leaves it. A file that cannot be loaded, or that the engine could not live with,
    /// is never saved over. The state before is kept as a version; where that fails, the situation has a
    /// warning. Throws Refusal (`fileError`) when the state was saved and a summary was not, of the
    /// type ChangeSaved when that was the operation's.
    Situation change(const std::function<void(const std::vector<Event>&)>& report, const Operation& operation,
                     const ChangeManner& manner = {}) const;

    /// Under the lock: puts a version in the place of the state, whatever that is now; even what cannot be
    /// read is kept as a version first. Throws, and changes nothing, when either version cannot be had
    /// (Refusal, `invalidRequest`, when it has been let go of).
    Situation bringBack(const Version& version) const;

    /// The state of a version; absent when it has been let go of. Throws what reading it throws.
    static std::optional<QuillmereState> stateOf(const Version& version);

    Instant now() const;

private:
    Workspace(const std::filesystem::path& directory, std::optional<std::filesystem::path> widgetDirectory,
              Clock clock, const std::filesystem::path& stateHome);

    /// A state as it was read, screened and brought up to the present.
    Situation caughtUp(QuillmereState state) const;
    /// Makes the directory, where it is missing, and takes its lock.
    DirectoryLock lock(std::chrono::milliseconds patience = DirectoryLock::usualPatience) const;
    /// Keeps the state file; says what went wrong, if anything did.
    std::string keepVersion(Instant savedAt) const;
    /// Where the widget's summary is; absent while nobody has made the shared container.
    std::optional<std::filesystem::path> widgetDirectory() const;
    /// Whether both summaries are those of a state that has been saved.
    bool summariesAgreeWith(const QuillmereState& state) const;
    bool widgetAgreesWith(const QuillmereState& state) const;
    /// Replaces all three files, in the order in which they depend on each other. `done` says what has
    /// come of the state when only a summary fails.
    void save(const QuillmereState& state, Instant now, const std::string& done) const;

    StateStore states_;
    std::optional<std::filesystem::path> widgetDirectory_;  ///< absent: the shared container
    std::filesystem::path stateDirectory_;
    Clock clock_;
};

}  // namespace quillmere::workspace
