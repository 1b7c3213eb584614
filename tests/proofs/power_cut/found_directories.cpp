#include "proofs/power_cut/found_directories.hpp"

#include <quillmere/widget/widget_snapshot_store.hpp>

#include <optional>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t mostVersions = 4;

/// The number of the version for which `isVersion` is true.
template <class IsVersion>
FoundFile versionThat(IsVersion isVersion)
{
    for (std::size_t number = 0; number < mostVersions; ++number) {
        if (isVersion(versionNumber(number))) {
            return {.finding = Finding::version, .number = number};
        }
    }
    return {.finding = Finding::foreign};
}

FoundFile findState(const StateStore& store)
{
    try {
        const QuillmereState state = store.load();
        QuillmereState initial = QuillmereState::initial(moment - 1);
        initial.id = state.id;
        if (!std::filesystem::exists(store.stateURL()) && state == initial) {
            return {.finding = Finding::nothing};
        }
        return versionThat(
            [&](const QuillmereState& version) { return state == version || state == withYears(version); });
    } catch (const DecodingError&) {
        return {.finding = Finding::refused};
    }
}

FoundFile findAgentSummary(const StateStore& store)
{
    if (!std::filesystem::exists(store.agentStateURL())) {
        return {.finding = Finding::nothing};
    }
    try {
        const Bytes text(textOf(store.agentStateURL()));
        const auto summary = StateStore::decoder().decode<AgentSnapshot>(text);
        return versionThat([&](const QuillmereState& version) {
            return summary == store.agentSnapshot(version, std::nullopt);
        });
    } catch (const DecodingError&) {
        return {.finding = Finding::refused};
    }
}

FoundFile findWidgetSummary(const WidgetSnapshotStore& store)
{
    try {
        const WidgetSnapshot summary = store.load();
        return versionThat([&](const QuillmereState& version) {
            return summary == WidgetSnapshot::make(version, version.updatedAt);
        });
    } catch (const WidgetSnapshotLoadError& error) {
        switch (error.reason()) {
            case WidgetSnapshotLoadError::notWritten: return {.finding = Finding::nothing};
            case WidgetSnapshotLoadError::unreadable: return {.finding = Finding::refused};
            case WidgetSnapshotLoadError::unsupportedSchemaVersion:
            case WidgetSnapshotLoadError::containerUnavailable: break;
        }
        return {.finding = Finding::foreign};
    }
}

}  // namespace

const Found& FoundDirectories::look(const DirectoryImage& image)
{
    const auto [place, isNew] = known_.try_emplace(image);
    if (!isNew) {
        return place->second;
    }
    const TemporaryDirectory directory;
    for (const auto& [name, content] : image) {
        writeText(directory.path() / name, content);
    }
    const StateStore store(
        directory.path(), [] { return moment - 1; }, StateStore::renameReplacing);
    Found& found = place->second;
    found = {.state = findState(store),
             .agent = findAgentSummary(store),
             .widget = findWidgetSummary(WidgetSnapshotStore(directory.path()))};
    bool isUnchanged = namesIn(directory.path()).size() == image.size();
    for (const auto& [name, content] : image) {
        isUnchanged = isUnchanged && textOf(directory.path() / name) == content;
    }
    if (!isUnchanged) {
        found = {};
    }
    return found;
}

}  // namespace quillmere::test
