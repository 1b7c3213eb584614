#include "merge/questions.hpp"

#include <gtest/gtest.h>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

AgentQuestion asked(unsigned number, double secondsAfter)
{
    return {.id = identifier(number),
            .question = "Which way?",
            .createdAt = moment + secondsAfter,
            .answer = std::nullopt,
            .answeredAt = std::nullopt};
}

AgentQuestion answered(AgentQuestion question, std::string answer, double secondsAfter)
{
    question.answer = std::move(answer);
    question.answeredAt = moment + secondsAfter;
    return question;
}

using Questions = std::vector<AgentQuestion>;

void expectMerged(const Questions& a, const Questions& b, const Questions& merged)
{
    EXPECT_EQ(merge::mergedQuestions(a, b), merged);
    EXPECT_EQ(merge::mergedQuestions(b, a), merged);
}

TEST(MergedQuestions, areThoseOfBothInTheOrderInWhichTheyWereAsked)
{
    expectMerged({asked(1, 0), asked(3, 20)}, {asked(1, 0), asked(2, 10)},
                 {asked(1, 0), asked(2, 10), asked(3, 20)});
}

TEST(MergedQuestions, keepTheOrderOfTheSideThatHasThemAll)
{
    expectMerged({asked(1, 20), asked(2, 10), asked(3, 0)}, {asked(3, 0)},
                 {asked(1, 20), asked(2, 10), asked(3, 0)});
}

TEST(MergedQuestions, haveOneOrderWhenBothSidesHaveThemAllInDifferentOrders)
{
    expectMerged({asked(2, 0), asked(1, 10)}, {asked(1, 10), asked(2, 0)}, {asked(1, 10), asked(2, 0)});
}

TEST(MergedQuestions, areAnsweredWhenOneSideHasTheAnswer)
{
    expectMerged({asked(1, 0)}, {answered(asked(1, 0), "Left", 5)}, {answered(asked(1, 0), "Left", 5)});
}

TEST(MergedQuestions, keepTheLaterOfTwoAnswers)
{
    expectMerged({answered(asked(1, 0), "Right", 4)}, {answered(asked(1, 0), "Left", 5)},
                 {answered(asked(1, 0), "Left", 5)});
}

TEST(MergedQuestions, chooseByBytesBetweenAnswersOfOneInstant)
{
    expectMerged({answered(asked(1, 0), "Right", 5)}, {answered(asked(1, 0), "Left", 5)},
                 {answered(asked(1, 0), "Right", 5)});
}

}  // namespace
}  // namespace quillmere::test
