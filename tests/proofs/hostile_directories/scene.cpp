#include "scene.hpp"

#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot_store.hpp>

#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

namespace quillmere::test {
namespace {

namespace fs = std::filesystem;

QuillmereState asking(unsigned questions)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 1; number <= questions; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "Question " + std::to_string(number),
                                        .createdAt = moment,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    }
    return state;
}

}  // namespace

const QuillmereState& stateBefore()
{
    static const QuillmereState state = asking(1);
    return state;
}

const QuillmereState& stateToSave()
{
    static const QuillmereState state = fullState();
    return state;
}

const QuillmereState& foreignState()
{
    static const QuillmereState state = asking(2);
    return state;
}

Scene makeScene(const fs::path& root)
{
    fs::create_directory(root);
    const fs::path place = root / "place";
    StateStore(place, StateStore::renameReplacing).save(stateBefore());
    WidgetSnapshotStore(place).save(WidgetSnapshot::make(stateBefore(), moment));
    const fs::path outside = root / "outside";
    StateStore(outside, StateStore::renameReplacing).save(foreignState());
    WidgetSnapshotStore(outside).save(WidgetSnapshot::make(foreignState(), moment));
    return {.root = root,
            .place = place,
            .widgetPlace = place,
            .directoryOption = place,
            .variables = {{"HOME", (root / "nobodys-home").string()}, {"XDG_DATA_HOME", std::nullopt}}};
}

void moveTo(Scene& scene, const fs::path& place)
{
    fs::rename(scene.place, place);
    scene.place = place;
    scene.widgetPlace = place;
    scene.directoryOption = place;
}

std::string textOfState(const QuillmereState& state)
{
    return std::string(StateStore::encoder().encode(state).view());
}

}  // namespace quillmere::test
