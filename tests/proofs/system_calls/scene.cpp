#include "proofs/system_calls/scene.hpp"

#include <algorithm>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

const QuillmereState& olderState()
{
    static const QuillmereState state = stateIn(WorkflowState::breaking);
    return state;
}

const QuillmereState& newerState()
{
    static const QuillmereState state = fullState();
    return state;
}

WidgetSnapshot summaryOf(const QuillmereState& state) { return WidgetSnapshot::make(state, state.updatedAt); }

ReplaceItem replaceItem(Replacing replacing)
{
    return replacing == Replacing::plainly ? StateStore::renameReplacing : StateStore::renameReplacingDurably;
}

/// The texts that a save of a state writes, file by file.
std::vector<std::string> textsOf(StoreKind store, const QuillmereState& state)
{
    const TemporaryDirectory directory;
    const StateStore states(directory.path(), StateStore::renameReplacing);
    const WidgetSnapshotStore widget(directory.path());
    if (store == StoreKind::widget) {
        widget.save(summaryOf(state));
        return {textOf(widget.snapshotURL())};
    }
    states.save(state);
    return {textOf(states.stateURL()), textOf(states.agentStateURL())};
}

const std::vector<std::string>& olderTexts(StoreKind store)
{
    static const std::vector<std::string> ofState = textsOf(StoreKind::state, olderState());
    static const std::vector<std::string> ofWidget = textsOf(StoreKind::widget, olderState());
    return store == StoreKind::state ? ofState : ofWidget;
}

const std::vector<std::string>& newerTexts(StoreKind store)
{
    static const std::vector<std::string> ofState = textsOf(StoreKind::state, newerState());
    static const std::vector<std::string> ofWidget = textsOf(StoreKind::widget, newerState());
    return store == StoreKind::state ? ofState : ofWidget;
}

template <class Value>
Version versionOf(const Value& value, const Value& older, const Value& newer)
{
    return value == newer ? Version::newer : value == older ? Version::older : Version::foreign;
}

}  // namespace

std::vector<Situation> situations()
{
    std::vector<Situation> all;
    for (const StoreKind store : {StoreKind::state, StoreKind::widget}) {
        for (const Before before : {Before::noDirectory, Before::noFile, Before::earlierFile}) {
            for (const Replacing replacing : {Replacing::plainly, Replacing::durably}) {
                all.push_back({store, before, replacing});
            }
        }
    }
    return all;
}

Scene::Scene(const Situation& situation)
    : situation_(situation),
      directory_(home_.path() / "parent" / "store"),
      states_(
          directory_, [] { return moment; }, replaceItem(situation.replacing)),
      widget_(directory_, replaceItem(situation.replacing))
{
    if (situation.before != Before::noDirectory) {
        fs::create_directories(directory_);
    }
    if (situation.before == Before::earlierFile) {
        const std::vector<fs::path> paths = files();
        for (std::size_t index = 0; index < paths.size(); ++index) {
            writeText(paths[index], olderTexts(situation.store)[index]);
        }
    }
}

void Scene::save() const
{
    if (situation_.store == StoreKind::state) {
        states_.save(newerState());
    } else {
        widget_.save(summaryOf(newerState()));
    }
}

Version Scene::load() const
{
    if (situation_.store == StoreKind::state) {
        const QuillmereState state = states_.load();
        QuillmereState initial = QuillmereState::initial(moment);
        initial.id = state.id;
        return state == initial ? Version::none : versionOf(state, olderState(), newerState());
    }
    try {
        return versionOf(widget_.load(), summaryOf(olderState()), summaryOf(newerState()));
    } catch (const WidgetSnapshotLoadError& error) {
        if (error.reason() == WidgetSnapshotLoadError::notWritten) {
            return Version::none;
        }
        throw;
    }
}

Content Scene::content() const
{
    Content content;
    content.others = namesIn(directory_);
    const std::vector<fs::path> paths = files();
    for (std::size_t index = 0; index < paths.size(); ++index) {
        const bool isThere = std::erase(content.others, paths[index].filename().string()) > 0;
        content.files.push_back(isThere ? versionOf(textOf(paths[index]), olderTexts(situation_.store)[index],
                                                    newerTexts(situation_.store)[index])
                                        : Version::none);
    }
    return content;
}

std::vector<fs::path> Scene::files() const
{
    if (situation_.store == StoreKind::widget) {
        return {widget_.snapshotURL()};
    }
    return {states_.stateURL(), states_.agentStateURL()};
}

}  // namespace quillmere::test
