// The files of a person kept open, for programs that stay.
#pragma once

#include "base/system/directory_watch.hpp"
#include "workspace/workspace.hpp"

#include <vector>

namespace quillmere::workspace {

/// Holds the situation in memory, reads it again when a file changes, and records what comes about as time
/// passes. Each instance, in whatever process, may do so: an event is recorded once, by the first one.
class OpenWorkspace {
public:
    /// Reads the situation; throws what reading throws (Workspace::look).
    explicit OpenWorkspace(Workspace workspace);

    /// As of the last `refresh` or `change`.
    const Situation& situation() const { return situation_; }
    const Workspace& workspace() const { return workspace_; }

    /// For poll(2): readable when `refresh` has something to read.
    int descriptor() const noexcept { return watch_.descriptor(); }

    /// Brings the situation up to the present; to be called once a second and whenever the descriptor is
    /// readable. Costs next to nothing when nothing has changed. Returns what came about by itself and was
    /// recorded by this call. Throws what reading and saving throw; the situation is then the last one that
    /// could be had, and the next call tries again. Waits for the lock no longer than `patience`; without it
    /// the situation is that of the present all the same, but not recorded.
    std::vector<Event> refresh(std::chrono::milliseconds patience = DirectoryLock::usualPatience);

    /// Applies an operation of the person to the files as they are now (Workspace::change). Returns as
    /// `refresh` does; when the operation is refused, the next call returns what came about before it.
    std::vector<Event> change(const Operation& operation,
                              std::chrono::milliseconds patience = DirectoryLock::usualPatience);

private:
    Workspace workspace_;
    base::DirectoryWatch watch_;
    Situation situation_;
    std::vector<Event> recorded_;  ///< not returned yet
    bool isStale_ = false;
};

}  // namespace quillmere::workspace
