#include "merge/merge.hpp"

#include <gtest/gtest.h>

#include "merge_testing.hpp"

namespace quillmere::test {
namespace {

using enum WorkflowState;

QuillmereState begunLater(QuillmereState state)
{
    state.currentBlock->sessions.back().startedAt = moment + 30;
    return state;
}

TEST(Merge, ofAStateWithItselfIsThatState)
{
    const merge::MergeResult result = mergedBothWays(fullState(), fullState());
    EXPECT_EQ(result.state, fullState());
    EXPECT_TRUE(result.a.isWhole && result.b.isWhole);
    EXPECT_FALSE(result.blocksCompeted || result.identifiersDiffer);
}

TEST(Merge, hasTheLaterTimeAndTheSmallerIdentifier)
{
    QuillmereState a = stateIn(idle);
    QuillmereState b = stateIn(idle);
    a.id = identifier(2);
    a.updatedAt = moment + 60;
    const merge::MergeResult result = mergedBothWays(a, b);
    EXPECT_EQ(result.state.id, b.id);
    EXPECT_EQ(result.state.updatedAt, moment + 60);
    EXPECT_TRUE(result.identifiersDiffer);
}

TEST(Merge, putsALosingBlockWithSessionsIntoTheHistoryUnfinished)
{
    const QuillmereState loser = stateIn(focusing);
    const merge::MergeResult result = mergedBothWays(loser, begunLater(atAnotherBlock(focusing)));
    EXPECT_TRUE(result.blocksCompeted);
    EXPECT_TRUE(result.setAside.empty());
    ASSERT_EQ(result.state.blockHistory.size(), 1);
    Block left = *loser.currentBlock;
    left.sessions.back().endedAt = loser.updatedAt;
    EXPECT_EQ(result.state.blockHistory[0], left);
}

TEST(Merge, namesALosingBlockWithoutSessions)
{
    QuillmereState loser = stateIn(sessionPlanning);
    loser.currentBlock->createdAt = moment - 9'000;
    const merge::MergeResult result = mergedBothWays(loser, atAnotherBlock(focusing));
    EXPECT_TRUE(result.blocksCompeted);
    EXPECT_EQ(result.setAside, std::vector{*loser.currentBlock});
    EXPECT_TRUE(result.state.blockHistory.empty());
}

TEST(Merge, takesABlockBackOutOfTheHistoryWhenItGoesOn)
{
    QuillmereState other = stateIn(idle);
    other.blockHistory = {*stateIn(sessionReview).currentBlock};
    const QuillmereState merged = mergedBothWays(stateIn(breaking), other).state;
    EXPECT_EQ(merged, stateIn(breaking));
}

TEST(Merge, goesOnBehindASessionThatEachSideHasOfTheOther)
{
    QuillmereState a = stateIn(focusing);
    QuillmereState b = stateIn(focusing);
    WorkSession other = a.currentBlock->sessions.back();
    other.id = identifier(460);
    other.startedAt = moment + 10;
    b.currentBlock->sessions = {other};
    const auto reviewed = [](WorkSession session) {
        session.endedAt = moment + 60;
        session.review = sampleReview(1);
        return session;
    };
    a.currentBlock->sessions.insert(a.currentBlock->sessions.begin(), reviewed(other));
    b.currentBlock->sessions.insert(b.currentBlock->sessions.begin(),
                                    reviewed(stateIn(focusing).currentBlock->sessions.back()));
    const QuillmereState merged = mergedBothWays(a, b).state;
    EXPECT_EQ(merged.workflowState, sessionPlanning);
    EXPECT_EQ(merged.currentBlock->sessions.size(), 2);
}

TEST(Merge, saysWhenASideHasNothingThatTheOtherLacks)
{
    QuillmereState newer = stateIn(idle);
    newer.blockHistory = {finishedBlock(10, moment)};
    const merge::MergeResult result = merge::merge(stateIn(idle), newer);
    EXPECT_FALSE(result.a.isWhole);
    EXPECT_TRUE(result.b.isWhole);
}

TEST(Merge, saysWhenOnlyFinishedBlocksQuestionsAndAnswersAreAdded)
{
    QuillmereState a = stateIn(focusing);
    QuillmereState b = stateIn(idle);
    a.agentQuestions = fullState().agentQuestions;
    b.agentQuestions = a.agentQuestions;
    b.agentQuestions.back().answer = "Yes";
    b.agentQuestions.back().answeredAt = moment;
    b.blockHistory = {finishedBlock(10, moment)};
    const merge::MergeResult result = merge::merge(a, b);
    EXPECT_TRUE(result.a.onlyGains);
    EXPECT_FALSE(result.b.onlyGains) << "a block is under way";
}

TEST(Merge, saysWhenABlockOrAnAnswerOfASideChanges)
{
    QuillmereState a = stateIn(idle);
    a.blockHistory = {finishedBlock(10, moment, 1)};
    QuillmereState b = a;
    b.blockHistory = {finishedBlock(10, moment, 2)};
    EXPECT_FALSE(merge::merge(a, b).a.onlyGains);

    a = stateIn(idle);
    a.agentQuestions = {fullState().agentQuestions.front()};
    b = a;
    b.agentQuestions[0].answeredAt = moment;
    EXPECT_FALSE(merge::merge(a, b).a.onlyGains);

    b = stateIn(focusing);
    b.blockHistory = {*atAnotherBlock(focusing).currentBlock};
    EXPECT_FALSE(merge::merge(b, stateIn(idle)).b.onlyGains) << "an unfinished block";
}

}  // namespace
}  // namespace quillmere::test
