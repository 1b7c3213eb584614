#include "workspace/summaries.hpp"

#include "base/refusal.hpp"
#include "workspace/screening.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/agent_snapshot.hpp>
#include <quillmere/store/file_manager.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include <cstdint>
#include <optional>
#include <system_error>
#include <utility>

namespace quillmere::workspace {
namespace {

namespace fs = std::filesystem;

constexpr std::int64_t agentSchemaVersion = 1;

/// Bytes; a block of some eighty sessions with usual texts. A status bar should take less than five
/// milliseconds of processor time.
constexpr std::uintmax_t longestAgentSummary = 1 << 17;

bool agentAgrees(const StateStore& states, const QuillmereState& state)
{
    const AgentSnapshot summary = states.agentSnapshot(state, std::nullopt);
    return fileHolds(states.agentStateURL(), StateStore::encoder().encode(summary).view());
}

bool widgetAgrees(const WidgetPlace& place, const QuillmereState& state)
{
    const std::optional<fs::path> directory = place.existing();
    if (!directory) {
        return false;
    }
    const WidgetSnapshotStore store(*directory);
    try {
        const Instant madeAt = store.load().updatedAt;
        const WidgetSnapshot summary = WidgetSnapshot::make(state, madeAt);
        return madeAt >= state.updatedAt &&
               fileHolds(store.snapshotURL(), JsonEncoder(JsonLayout::compact).encode(summary).view());
    } catch (const WidgetSnapshotLoadError& error) {
        return error.reason() == WidgetSnapshotLoadError::unsupportedSchemaVersion;
    }
}

}  // namespace

WidgetSnapshot widgetSummary(const WidgetPlace& place, Instant now)
{
    const std::optional<fs::path> directory = place.existing();
    if (!directory) {
        return WidgetSnapshot::empty(now);
    }
    try {
        WidgetSnapshot summary = WidgetSnapshotStore(*directory).load();
        requireUsable(summary);
        return summary;
    } catch (const WidgetSnapshotLoadError& error) {
        switch (error.reason()) {
            case WidgetSnapshotLoadError::notWritten:
            case WidgetSnapshotLoadError::containerUnavailable: return WidgetSnapshot::empty(now);
            case WidgetSnapshotLoadError::unsupportedSchemaVersion:
                throw base::Refusal(base::Refusal::Kind::unusableData,
                                    "The widget's summary was written by a newer program.");
            case WidgetSnapshotLoadError::unreadable: break;
        }
        throw base::Refusal(base::Refusal::Kind::unusableData, "The widget's summary cannot be read.");
    }
}

std::optional<AgentSnapshot> agentSummary(const StateStore& states)
{
    std::error_code error;
    if (fs::file_size(states.agentStateURL(), error) > longestAgentSummary || error) {
        return std::nullopt;
    }
    try {
        const Bytes text = FileManager::standard().contents(states.agentStateURL());
        AgentSnapshot summary = StateStore::decoder().decode<AgentSnapshot>(text);
        return summary.schemaVersion == agentSchemaVersion ? std::optional(std::move(summary)) : std::nullopt;
    } catch (const std::system_error&) {
        return std::nullopt;
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

bool summariesAgree(const StateStore& states, const WidgetPlace& place, const QuillmereState& state)
{
    return agentAgrees(states, state) && widgetAgrees(place, state);
}

bool fileHolds(const fs::path& file, std::string_view bytes)
{
    try {
        return FileManager::standard().contents(file).view() == bytes;
    } catch (const std::system_error&) {
        return false;
    }
}

}  // namespace quillmere::workspace
