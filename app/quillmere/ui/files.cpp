#include "ui/files.hpp"

#include "exit_code.hpp"
#include "text/file_error.hpp"

#include <quillmere/engine/workflow_error.hpp>
#include <quillmere/records/json/coding_error.hpp>

namespace quillmere::app::ui {

std::string messageOf(const std::exception& error)
{
    if (const auto* const refused = dynamic_cast<const WorkflowError*>(&error)) {
        return refused->errorDescription();
    }
    if (dynamic_cast<const CodingError*>(&error)) {
        return std::string("The state cannot be used: ") + error.what();
    }
    if (const auto* const failed = dynamic_cast<const std::system_error*>(&error)) {
        return fileErrorText(*failed);
    }
    return error.what();
}

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
        trouble_ = messageOf(error);
        return {};
    }
}

}  // namespace quillmere::app::ui
