// The files of the person, also while they cannot be read.
#pragma once

#include "workspace/open_workspace.hpp"

#include <optional>
#include <string>

namespace quillmere::workspace {

class RetryingWorkspace {
public:
    /// Opens them, or keeps watch until they can be opened. Throws `std::system_error` when the system can
    /// watch no more.
    explicit RetryingWorkspace(Workspace workspace);

    /// Absent until they could be read once.
    const Situation* situation() const { return open_ ? &open_->situation() : nullptr; }
    /// Why they could not be read or written last time; absent when all is well.
    const std::optional<std::string>& trouble() const { return trouble_; }
    /// Whether something came about that could not be recorded, because somebody else was at work; the next
    /// call of `refresh` tries again.
    bool isBehind() const { return isBehind_; }
    /// For poll(2).
    int descriptor() const { return open_ ? open_->descriptor() : watch_->descriptor(); }

    /// Looks again, without waiting for anybody. Returns what came about by itself and was recorded by this
    /// call.
    std::vector<Event> refresh();

    /// Applies an operation of the person; throws what it throws, and what reading and writing throw.
    std::vector<Event> change(const Operation& operation);

private:
    void open();

    Workspace workspace_;
    std::optional<OpenWorkspace> open_;
    std::optional<base::DirectoryWatch> watch_;  ///< while they are not open
    std::optional<std::string> trouble_;
    bool isBehind_ = false;
};

}  // namespace quillmere::workspace
