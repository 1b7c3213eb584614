#include "proofs/power_cut/recorded_saves.hpp"

#include "base/reach.hpp"
#include "statefile/present.hpp"

#include <quillmere/widget/widget_snapshot_store.hpp>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

DirectoryImage imageOf(const fs::path& directory)
{
    DirectoryImage image;
    for (const std::string& name : namesIn(directory)) {
        image[name] = textOf(directory / name);
    }
    return image;
}

/// Reads the present of the file and saves another in its place.
void savePresent(const StateStore& store, QuillmereState state, const ReplaceItem& replaceItem)
{
    constexpr base::Reach reach = base::Reach::present;
    const auto changeable = statefile::readChangeable(store.stateURL(), reach, moment);
    base::keepWithin(reach, state, moment);
    changeable.value().kept.save(state, store.stateURL(), replaceItem);
}

void save(Scope scope, const fs::path& directory, std::size_t number, const ReplaceItem& replaceItem)
{
    const QuillmereState state = versionNumber(number);
    if (scope == Scope::present) {
        const StateStore store(directory, replaceItem);
        if (fs::exists(store.stateURL())) {
            savePresent(store, withYears(state), replaceItem);
        } else {
            store.save(withYears(state));
        }
        return;
    }
    if (scope != Scope::widget) {
        StateStore(directory, replaceItem).save(state);
    }
    if (scope != Scope::state) {
        WidgetSnapshotStore(directory, replaceItem).save(WidgetSnapshot::make(state, state.updatedAt));
    }
}

}  // namespace

QuillmereState versionNumber(std::size_t number)
{
    QuillmereState state = stateIn(WorkflowState::sessionReview);
    state.updatedAt = moment + static_cast<double>(number);
    state.agentQuestions = {{.id = identifier(900),
                             .question = "Version " + std::to_string(number),
                             .createdAt = moment,
                             .answer = std::nullopt,
                             .answeredAt = std::nullopt}};
    return state;
}

QuillmereState withYears(QuillmereState version)
{
    addEarlierYears(version);
    return version;
}

std::vector<CutMoment> cutMoments(const Saves& saves)
{
    const TemporaryDirectory directory;
    if (saves.hasEarlier) {
        save(saves.scope, directory.path(), 0, StateStore::renameReplacing);
    }
    FileSystemModel model(directory.path(), imageOf(directory.path()));

    std::vector<CutMoment> moments;
    for (std::size_t number = 1; number <= saves.count; ++number) {
        const SystemCallWatch watch;
        save(saves.scope, directory.path(), number, saves.replaceItem);
        moments.push_back({.completed = number - 1, .begun = number, .images = model.imagesAfterCut()});
        for (const CallRecord& record : watch.calls()) {
            if (model.apply(record)) {
                moments.push_back(
                    {.completed = number - 1, .begun = number, .images = model.imagesAfterCut()});
            }
        }
    }
    moments.push_back({.completed = saves.count, .begun = saves.count, .images = model.imagesAfterCut()});
    return moments;
}

}  // namespace quillmere::test
