#include "work/fields/earlier_values.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using namespace work;

using Texts = std::vector<std::string>;

/// A block with sessions that were planned with these first actions.
Block blockOf(unsigned number, const Texts& firstActions)
{
    Block block = blockInWork(number, std::ssize(firstActions));
    for (std::size_t index = 0; index < firstActions.size(); ++index) {
        block.sessions[index].plan.firstAction = firstActions[index];
    }
    return block;
}

const RecordField<SessionPlan>& firstAction = planFields[1];

TEST(EarlierValues, areTheNewestFirstAndEachOnce)
{
    QuillmereState state = stateIn(WorkflowState::sessionPlanning);
    state.plannedNextSession = samplePlan(1);
    state.plannedNextSession->firstAction = "Sit down";
    state.currentBlock = blockOf(1, {"Read", "Write", "Sit down"});
    state.blockHistory = {blockOf(2, {"Oldest of this", "", "Write"}), blockOf(3, {"Oldest"})};
    EXPECT_EQ(earlierValues(state, firstAction),
              (Texts{"Sit down", "Write", "Read", "Oldest of this", "Oldest"}));
}

TEST(EarlierValues, areOfTheBlocksTheReviewsAndTheReflectionsToo)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    Block block = blockInWork(1, 2);  // the first of the sessions is reviewed
    block.whyValue = "A deadline";
    block.outcomes = {{.id = identifier(1), .title = "One"}, {.id = identifier(2), .title = "Two"}};
    block.focusDurationSeconds = 5400;
    block.sessions[0].review->distractions = "The door";
    block.reflection = BlockReview{.outputProduced = "",
                                   .normalComparison = "",
                                   .boggedDown = "",
                                   .wentWell = "",
                                   .lessons = "Close the door"};
    state.blockHistory = {block};
    EXPECT_EQ(earlierValues(state, blockFields[0]), (Texts{"One", "Two"}));
    EXPECT_EQ(earlierValues(state, blockFields[1]), Texts{"A deadline"});
    EXPECT_EQ(earlierValues(state, blockFields[6]), Texts{"1h30m"});
    EXPECT_EQ(earlierValues(state, reviewFields[2]), Texts{"The door"});
    EXPECT_EQ(earlierValues(state, reflectionFields[4]), Texts{"Close the door"});
    EXPECT_EQ(earlierValues(state, reflectionFields[0]), Texts{});
}

TEST(EarlierValues, areAHundredAtMost)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    Texts texts;
    for (int number = 1; number <= 150; ++number) {
        texts.push_back("Action " + std::to_string(number));
    }
    state.blockHistory = {blockOf(1, texts)};
    const Texts values = earlierValues(state, firstAction);
    ASSERT_EQ(values.size(), 100U);
    EXPECT_EQ(values.front(), "Action 150");
    EXPECT_EQ(values.back(), "Action 51");
}

}  // namespace
}  // namespace quillmere::test
