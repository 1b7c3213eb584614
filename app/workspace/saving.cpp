#include "workspace/saving.hpp"

#include "base/text/failure.hpp"
#include "workspace/summaries.hpp"

#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/atomic_write.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <algorithm>
#include <filesystem>
#include <system_error>

namespace quillmere::workspace {
namespace {

std::string failureToWrite(const std::filesystem::path& file, const std::system_error& error)
{
    return file.string() + " could not be written: " + base::fileErrorText(error);
}

std::string saveState(const StateStore& states, const QuillmereState& state)
{
    try {
        writeAtomically(StateStore::encoder().source(state), states.stateURL(),
                        StateStore::renameReplacingDurably);
        return {};
    } catch (const std::system_error& error) {
        // The new file is in place when only the sync of the directory failed.
        if (!fileHolds(states.stateURL(), StateStore::encoder().encode(state).view())) {
            throw;
        }
        return failureToWrite(states.stateURL(), error);
    }
}

std::string saveAgentSummary(const StateStore& states, const QuillmereState& state)
{
    try {
        states.saveAgentSnapshot(state, state.updatedAt);
        return {};
    } catch (const std::system_error& error) {
        return failureToWrite(states.agentStateURL(), error);
    }
}

std::string saveWidgetSummary(const WidgetSnapshotStore& widget, const WidgetSnapshot& summary)
{
    try {
        widget.save(summary);
        return {};
    } catch (const std::system_error& error) {
        return failureToWrite(widget.snapshotURL(), error);
    }
}

}  // namespace

std::string saveAll(const StateStore& states, const WidgetPlace& place, const QuillmereState& state,
                    Instant now)
{
    const WidgetSnapshot summary = WidgetSnapshot::make(state, std::max(now, state.updatedAt));
    // A summary without a JSON form, or without a directory, must be found before the state is written.
    JsonEncoder(JsonLayout::compact).encode(summary);
    const WidgetSnapshotStore widget(place.created(), StateStore::renameReplacingDurably);
    const std::string ofState = saveState(states, state);
    const std::string ofAgent = saveAgentSummary(states, state);
    const std::string ofWidget = saveWidgetSummary(widget, summary);
    std::string unwritten;
    for (const std::string& failure : {ofState, ofAgent, ofWidget}) {
        unwritten += (unwritten.empty() || failure.empty() ? "" : "; ") + failure;
    }
    return unwritten;
}

}  // namespace quillmere::workspace
