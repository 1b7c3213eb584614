#include <quillmere/quillmere.hpp>

#include <iostream>

int main(int, char** arguments)
{
    using namespace quillmere;
    const StateStore store(arguments[1], StateStore::renameReplacingDurably);
    const WorkflowEngine engine;
    QuillmereState state = store.load();
    const Instant now = state.updatedAt;
    engine.beginBlockPlanning(state, now);
    engine.startBlock(state, Block::default_(now), now);
    engine.startFocus(state, SessionPlan::blank(Identifier::random()), now);
    store.save(state);
    std::cout << QuillmereDesign::caption(WidgetSnapshot::make(state, now)) << '\n';
}
