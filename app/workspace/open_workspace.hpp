// The workspace for programs that keep running: a situation in memory that follows the files and the clock.
#pragma once

#include "base/reach.hpp"
#include "base/system/directory_watch.hpp"
#include "workspace/workspace.hpp"

#include <string>
#include <vector>

namespace quillmere::workspace {

/// Reads the state again when a file changes, and records events as time passes. Any number of instances may
/// exist, in any processes: the first to save an event records it, the others read it.
class OpenWorkspace {
public:
    /// Reads the situation; throws as Workspace::look does. What lies beyond the reach is neither held nor
    /// shown.
    OpenWorkspace(Workspace workspace, base::Reach reach);

    /// Lets go of what lies beyond; the next `refresh` reads as far back as this.
    void setReach(base::Reach reach);

    /// As of the last `refresh` or `change`.
    const Situation& situation() const { return situation_; }
    const Workspace& workspace() const { return workspace_; }

    /// For poll(2): readable when `refresh` has something to read.
    int descriptor() const noexcept { return watch_.descriptor(); }
    /// Why changes are found by `refresh` alone (DirectoryWatch::trouble); usually empty.
    const std::string& watchTrouble() const noexcept { return watch_.trouble(); }

    /// Brings the situation up to the present. To be called once a second and when the descriptor is
    /// readable; reads no file when nothing has changed. Returns the events that this instance recorded and
    /// has not returned before.
    ///
    /// Throws what reading and saving throw; the situation then stays as it was last read, and the
    /// next call tries again. When the lock is not free within `patience`, throws Refusal (`busy`): the
    /// situation is up to date, but its events are not recorded yet.
    std::vector<Event> refresh(std::chrono::milliseconds patience = DirectoryLock::usualPatience);

    /// Applies an operation to the files as they are now (Workspace::change), in a manner that reaches at
    /// least as far back. Returns events as `refresh` does. When this throws, the events that were recorded
    /// before are returned by the next call.
    std::vector<Event> change(const Operation& operation, const ChangeManner& manner = {});

    /// Compresses one version after each save, by whatever program. To be called when nobody waits.
    void compressVersion();

private:
    Workspace workspace_;
    base::Reach reach_;
    base::DirectoryWatch watch_;
    Situation situation_;
    std::vector<Event> recorded_;  ///< not returned yet
    bool isStale_ = false;         ///< the files must be read, or events must be recorded
    bool hasNewSave_ = false;      ///< the files have changed since a version was compressed
};

}  // namespace quillmere::workspace
