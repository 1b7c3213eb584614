// Planning a block after another one, with keys.
#include "screen/screen_of_a_person.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

class ModelsAtTheScreen : public ScreenOfAPerson {
protected:
    const Key models = withControl('t');

    /// Idle, with six finished blocks.
    void hasFinishedBlocks()
    {
        QuillmereState state = stateIn(WorkflowState::idle);
        for (int number = 1; number <= 6; ++number) {
            Block block = Block::default_(moment);
            block.outcomes.front().title = "Chapter " + std::to_string(number);
            block.whyValue = "Reason " + std::to_string(number);
            block.cycleCount = number;
            block.completedAt = moment;
            state.blockHistory.push_back(block);
        }
        opens(state);
    }
};

TEST_F(ModelsAtTheScreen, areTheLastFiveBlocksAndTheTemplates)
{
    configuration.values.templates = {{.name = "report"}};
    hasFinishedBlocks();
    presses("p");
    EXPECT_TRUE(shows("^T like another"));
    presses(models);
    EXPECT_TRUE(shows("▸ Chapter 1"));
    EXPECT_TRUE(shows("Chapter 5"));
    EXPECT_FALSE(shows("Chapter 6"));
    EXPECT_TRUE(shows("report"));
}

TEST_F(ModelsAtTheScreen, fillTheFormWithTheirWordsAndLengths)
{
    hasFinishedBlocks();
    presses("p");
    presses(models);
    presses(downKey);
    presses(enter);
    EXPECT_TRUE(shows("Chapter 2"));
    presses(save);
    const QuillmereState state = person.state();
    ASSERT_EQ(state.workflowState, WorkflowState::sessionPlanning);
    EXPECT_EQ(state.currentBlock->outcomes.front().title, "Chapter 2");
    EXPECT_NE(state.currentBlock->outcomes.front().id, state.blockHistory[1].outcomes.front().id);
    EXPECT_EQ(state.currentBlock->whyValue, "Reason 2");
    EXPECT_EQ(state.currentBlock->cycleCount, 2);
}

TEST_F(ModelsAtTheScreen, stayADraftWhenPlanningIsLeft)
{
    hasFinishedBlocks();
    presses("p");
    presses(models);
    presses(enter);
    presses(escape);
    presses("y");
    presses("p");
    EXPECT_TRUE(shows("Chapter 1"));
}

TEST_F(ModelsAtTheScreen, areLeftWithoutAChange)
{
    hasFinishedBlocks();
    presses("p");
    presses(models);
    presses(escape);
    presses(escape);
    EXPECT_TRUE(shows("Planning is left."));
}

TEST_F(ModelsAtTheScreen, areNotOfferedWhereThereAreNone)
{
    opens();
    presses("p");
    EXPECT_FALSE(shows("^T"));
    presses(models);
    EXPECT_TRUE(shows("What should come out of it?"));
}

TEST_F(ModelsAtTheScreen, areLeftWhenTheWorkMovesOnElsewhere)
{
    hasFinishedBlocks();
    presses("p");
    presses(models);
    person.has(stateIn(WorkflowState::focusing));
    waits(1);
    EXPECT_FALSE(shows("Plan it like"));
}

}  // namespace
}  // namespace quillmere::test
