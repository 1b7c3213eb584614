#include "ui/files.hpp"

#include "text/failure.hpp"

namespace quillmere::app::ui {
namespace {

using namespace std::chrono_literals;

/// Keys and the countdown go on while others hold the files.
constexpr auto patienceOfLooks = 0ms;
constexpr auto patienceOfPersons = 1s;

}  // namespace

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
    isBehind_ = false;
    try {
        if (!open_) {
            open();
        }
        std::vector<Event> events = open_->refresh(patienceOfLooks);
        trouble_.reset();
        return events;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const ProgramError& error) {
        isBehind_ = error.code() == ExitCode::lockBusy;
        trouble_ = isBehind_ ? std::nullopt : std::optional<std::string>(error.what());
        return {};
    } catch (const std::exception& error) {
        trouble_ = failureText(error);
        return {};
    }
}

std::vector<Event> Files::change(const Operation& operation)
{
    return open_->change(operation, patienceOfPersons);
}

}  // namespace quillmere::app::ui
