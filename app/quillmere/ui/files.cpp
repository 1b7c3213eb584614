#include "ui/files.hpp"

#include "text/failure.hpp"

namespace quillmere::app::ui {

Files::Files(Workspace workspace) : workspace_(std::move(workspace)) { refresh(); }

void Files::open()
{
    watch_->takeChanges();
    open_.emplace(workspace_);
    watch_.reset();
}

std::vector<Event> Files::refresh()
{
    if (!open_ && !watch_) {
        // Before the first try, so that nothing is missed after it.
        watch_.emplace(workspace_.directory());
    }
    try {
        if (!open_) {
            open();
        }
        std::vector<Event> events = open_->refresh();
        trouble_.reset();
        return events;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        trouble_ = failureText(error);
        return {};
    }
}

}  // namespace quillmere::app::ui
