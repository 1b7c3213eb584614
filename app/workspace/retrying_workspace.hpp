// An OpenWorkspace that survives files which cannot be read: a screen shows the failure and tries again.
#pragma once

#include "workspace/open_workspace.hpp"

#include <optional>
#include <string>

namespace quillmere::workspace {

/// Opens the files as soon as they can be read. A failure to read or to record is kept as a text, and every
/// `refresh` tries again.
class RetryingWorkspace {
public:
    /// Tries to open the files. Throws `std::system_error` only when the directory cannot be watched.
    RetryingWorkspace(Workspace workspace, base::Reach reach);

    base::Reach reach() const { return reach_; }
    /// As OpenWorkspace does.
    void setReach(base::Reach reach);

    /// Null until the files could be read once.
    const Situation* situation() const { return open_ ? &open_->situation() : nullptr; }
    /// The last failure to read or write, in words; absent after a success.
    const std::optional<std::string>& trouble() const { return trouble_; }
    /// Whether events are not recorded yet because another program held the lock. The next `refresh` tries
    /// again.
    bool isBehind() const { return isBehind_; }
    /// For poll(2): readable when `refresh` has something to read.
    int descriptor() const { return open_ ? open_->descriptor() : watch_->descriptor(); }
    /// Why changes are found by `refresh` alone (DirectoryWatch::trouble); usually empty.
    const std::string& watchTrouble() const { return open_ ? open_->watchTrouble() : watch_->trouble(); }

    /// Reads the files if they changed, without waiting for the lock. Returns events as OpenWorkspace does.
    std::vector<Event> refresh();

    const Workspace& workspace() const { return workspace_; }

    /// Applies an operation (OpenWorkspace::change), waiting for the lock for a second at most. To be called
    /// only when there is a situation.
    std::vector<Event> change(const Operation& operation, ChangeManner manner = {});

    /// OpenWorkspace::compressVersion, once the files are open.
    void compressVersion();

private:
    void open();

    Workspace workspace_;
    base::Reach reach_;
    std::optional<OpenWorkspace> open_;
    std::optional<base::DirectoryWatch> watch_;  ///< until the files are open
    std::optional<std::string> trouble_;
    bool isBehind_ = false;
};

}  // namespace quillmere::workspace
