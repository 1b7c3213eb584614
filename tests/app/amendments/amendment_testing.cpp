#include "amendment_testing.hpp"

#include "workspace/screening.hpp"

#include <quillmere/engine/timer_snapshot.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

namespace quillmere::test {
namespace {

/// In whole seconds, as all instants of the tests are.
QuillmereState loadedAgain(const QuillmereState& state)
{
    return StateStore::decoder().decode<QuillmereState>(StateStore::encoder().encode(state));
}

}  // namespace

QuillmereState edited(QuillmereState state, const Amend& edit)
{
    edit(state);
    return state;
}

void expectUsable(const QuillmereState& state, Instant now)
{
    EXPECT_NO_THROW(workspace::requireUsable(state));
    EXPECT_EQ(loadedAgain(state), state);
    TimerSnapshot::derive(state, now);
    WidgetSnapshot::make(state, now);
    StateStore("/nowhere", StateStore::renameReplacing).agentSnapshot(state, now);
}

QuillmereState amended(QuillmereState state, Instant now, const Amend& amend)
{
    amend(state);
    EXPECT_EQ(state.updatedAt, now);
    expectUsable(state, now);
    return state;
}

amendments::Refusal refusal(const QuillmereState& state, const Amend& amend)
{
    QuillmereState tried = state;
    try {
        amend(tried);
    } catch (const amendments::Refusal& refused) {
        EXPECT_EQ(tried, state);
        return refused;
    }
    ADD_FAILURE() << "was not refused";
    return amendments::Refusal("");
}

std::string refused(const QuillmereState& state, const Amend& amend) { return refusal(state, amend).what(); }

}  // namespace quillmere::test
