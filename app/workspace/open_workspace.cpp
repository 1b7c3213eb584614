#include "workspace/open_workspace.hpp"

#include <malloc.h>

#include <utility>

namespace quillmere::workspace {

OpenWorkspace::OpenWorkspace(Workspace workspace, base::Reach reach)
    : workspace_(std::move(workspace)),
      reach_(reach),
      // Before the files are read, so that no change between the two is missed.
      watch_(workspace_.directory()),
      situation_(workspace_.look(reach_)),
      isStale_(!situation_.events.empty())
{
}

void OpenWorkspace::setReach(base::Reach reach)
{
    isStale_ = isStale_ || reach > reach_;
    reach_ = reach;
    base::keepWithin(reach_, situation_.state, situation_.now);
    // What the years took goes back to the system, for a program may run for days.
    ::malloc_trim(0);
}

std::vector<Event> OpenWorkspace::refresh(std::chrono::milliseconds patience)
{
    const bool hasChanged = watch_.takeChanges();
    hasNewSave_ = hasChanged || hasNewSave_;
    isStale_ = hasChanged || isStale_;
    if (isStale_) {
        situation_ = workspace_.look(reach_);
        isStale_ = !situation_.events.empty();
    } else {
        situation_.now = workspace_.now();
        isStale_ = !catchUp(situation_.state, situation_.now).empty();
    }
    // So far the events are in memory only, and another program may have recorded them meanwhile.
    return isStale_ ? change(nullptr, {.patience = patience, .reach = reach_}) : std::exchange(recorded_, {});
}

std::vector<Event> OpenWorkspace::change(const Operation& operation, const ChangeManner& manner)
{
    const auto record = [this](const std::vector<Event>& events) {
        recorded_.insert(recorded_.end(), events.begin(), events.end());
    };
    isStale_ = true;
    situation_ = workspace_.change(record, operation, manner);
    base::keepWithin(reach_, situation_.state, situation_.now);
    situation_.events.clear();
    isStale_ = false;
    return std::exchange(recorded_, {});
}

void OpenWorkspace::compressVersion()
{
    if (std::exchange(hasNewSave_, false)) {
        workspace_.compressVersion();
    }
}

}  // namespace quillmere::workspace
