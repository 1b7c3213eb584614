#include "work/break_extension.hpp"

#include <gtest/gtest.h>
#include <quillmere/engine/timer_snapshot.hpp>

#include "support/sample_states.hpp"
#include "workspace/catching_up.hpp"

namespace quillmere::test {
namespace {

// A break of five minutes, begun at `moment`.

TEST(ExtendBreak, movesAFutureEndThatIsAnnouncedLater)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    work::extendBreak(state, 60, moment + 100);
    EXPECT_FALSE(state.breakEndNotifiedAt);
    EXPECT_EQ(workspace::catchUp(state, moment + 360).size(), 1U);
}

TEST(ExtendBreak, announcesNoSecondEndOfABreakThatIsStillOver)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    const Instant late = moment + 3'600;
    ASSERT_EQ(workspace::catchUp(state, late).size(), 1U);
    work::extendBreak(state, work::usualExtension, late);
    EXPECT_TRUE(workspace::catchUp(state, late + 1).empty());
}

}  // namespace
}  // namespace quillmere::test
