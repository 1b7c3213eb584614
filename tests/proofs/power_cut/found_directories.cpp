#include "proofs/power_cut/found_directories.hpp"

#include <optional>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

constexpr std::size_t mostVersions = 4;

void findState(const StateStore& store, Found& found)
{
    found.state = Finding::foreign;
    try {
        const QuillmereState state = store.load();
        QuillmereState initial = QuillmereState::initial(moment - 1);
        initial.id = state.id;
        if (!std::filesystem::exists(store.stateURL()) && state == initial) {
            found.state = Finding::nothing;
        }
        for (std::size_t number = 0; number < mostVersions; ++number) {
            if (state == versionNumber(number)) {
                found.state = Finding::version;
                found.stateNumber = number;
            }
        }
    } catch (const DecodingError&) {
        found.state = Finding::refused;
    }
}

void findSummary(const StateStore& store, Found& found)
{
    if (!std::filesystem::exists(store.agentStateURL())) {
        found.summary = Finding::nothing;
        return;
    }
    found.summary = Finding::foreign;
    try {
        const Bytes text(textOf(store.agentStateURL()));
        const auto summary = StateStore::decoder().decode<AgentSnapshot>(text);
        for (std::size_t number = 0; number < mostVersions; ++number) {
            if (summary == store.agentSnapshot(versionNumber(number), std::nullopt)) {
                found.summary = Finding::version;
                found.summaryNumber = number;
            }
        }
    } catch (const DecodingError&) {
        found.summary = Finding::refused;
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
    findState(store, found);
    findSummary(store, found);
    bool isUnchanged = namesIn(directory.path()).size() == image.size();
    for (const auto& [name, content] : image) {
        isUnchanged = isUnchanged && textOf(directory.path() / name) == content;
    }
    found.state = isUnchanged ? found.state : Finding::foreign;
    return found;
}

}  // namespace quillmere::test
