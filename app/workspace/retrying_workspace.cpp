#include "workspace/retrying_workspace.hpp"

#include "base/text/failure.hpp"

#include <utility>

namespace quillmere::workspace {
namespace {

using namespace std::chrono_literals;

/// The screen must react to keys and count down while another program holds the lock.
constexpr auto patienceOfRefresh = 0ms;
constexpr auto patienceOfChange = 1s;

}  // namespace

RetryingWorkspace::RetryingWorkspace(Workspace workspace, base::Reach reach)
    : workspace_(std::move(workspace)), reach_(reach)
{
    refresh();
}

void RetryingWorkspace::setReach(base::Reach reach)
{
    reach_ = reach;
    if (open_) {
        open_->setReach(reach);
    }
}

void RetryingWorkspace::open()
{
    watch_->takeChanges();
    open_.emplace(workspace_, reach_);
    watch_.reset();
}

std::vector<Event> RetryingWorkspace::refresh()
{
    if (!open_ && !watch_) {
        // Before the files are read, so that no change after that is missed.
        watch_.emplace(workspace_.directory());
    }
    isBehind_ = false;
    try {
        if (!open_) {
            open();
        }
        std::vector<Event> events = open_->refresh(patienceOfRefresh);
        trouble_.reset();
        return events;
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const base::Refusal& error) {
        isBehind_ = error.kind() == base::Refusal::Kind::busy;
        trouble_ = isBehind_ ? std::nullopt : std::optional<std::string>(error.what());
        return {};
    } catch (const std::exception& error) {
        trouble_ = base::failureText(error);
        return {};
    }
}

void RetryingWorkspace::compressVersion()
{
    if (open_) {
        open_->compressVersion();
    }
}

std::vector<Event> RetryingWorkspace::change(const Operation& operation, ChangeManner manner)
{
    manner.patience = patienceOfChange;
    return open_->change(operation, manner);
}

}  // namespace quillmere::workspace
