// Questions of an outside agent.
#include <quillmere/engine/workflow_engine.hpp>

#include <array>
#include <string>
#include <string_view>

#include "engine_testing.hpp"

namespace quillmere::test {
namespace {

using namespace std::string_view_literals;
using enum WorkflowState;

/// Texts that must not be trimmed, refused or repaired.
constexpr auto texts = std::to_array<std::string_view>({
    "Which build fails?",
    "",
    "  ",
    "\n",
    " leading and trailing\t",
    "nul \0 inside"sv,
    "\"quotes\" and \\ and /",
    "Größe – 大きさ",
    "\xFF\xC3 not UTF-8",
});

TEST(AddQuestion, appendsAnOpenQuestionAndChangesNothingElse)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = crowdedStateIn(workflowState);
        QuillmereState expected = state;
        engine.addQuestion(state, "Which build fails?", now);
        ASSERT_EQ(state.agentQuestions.size(), 3U);
        expected.agentQuestions.push_back({
            .id = state.agentQuestions.back().id,  // a random one
            .question = "Which build fails?",
            .createdAt = now,
            .answer = std::nullopt,
            .answeredAt = std::nullopt,
        });
        expected.updatedAt = now;
        EXPECT_TRUE(isExactly(state, expected));
    }
}

TEST(AddQuestion, storesTheTextExactlyAsGiven)
{
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        QuillmereState state = stateIn(idle);
        engine.addQuestion(state, std::string(text), now);
        EXPECT_EQ(state.agentQuestions.back().question, text);
    }
}

TEST(AddQuestion, keepsTheOrderOfAsking)
{
    QuillmereState state = stateIn(idle);
    engine.addQuestion(state, "first", now);
    // An earlier instant does not move it to the front.
    engine.addQuestion(state, "second", now - 500);
    ASSERT_EQ(state.agentQuestions.size(), 2U);
    EXPECT_EQ(state.agentQuestions[0].question, "first");
    EXPECT_EQ(state.agentQuestions[1].question, "second");
}

TEST(AddQuestion, keepsTheSameTextTwiceUnderTwoIdentifiers)
{
    QuillmereState state = stateIn(idle);
    engine.addQuestion(state, "again?", now);
    engine.addQuestion(state, state.agentQuestions.front().question, now);
    ASSERT_EQ(state.agentQuestions.size(), 2U);
    EXPECT_EQ(state.agentQuestions[0].question, state.agentQuestions[1].question);
    EXPECT_NE(state.agentQuestions[0].id, state.agentQuestions[1].id);
}

TEST(AddQuestion, hasNoLimit)
{
    QuillmereState state = stateIn(idle);
    for (int count = 0; count < 1000; ++count) {
        engine.addQuestion(state, "more", now);
    }
    EXPECT_EQ(state.openQuestions().size(), 1000U);
}

TEST(AnswerQuestion, setsAnswerAndTimeAndChangesNothingElse)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        SCOPED_TRACE(rawValue(workflowState));
        QuillmereState state = crowdedStateIn(workflowState);
        QuillmereState expected = state;
        expected.agentQuestions[1].answer = "Yes";
        expected.agentQuestions[1].answeredAt = now;
        expected.updatedAt = now;
        engine.answerQuestion(state, identifier(602), "Yes", now);
        EXPECT_TRUE(isExactly(state, expected));
    }
}

TEST(AnswerQuestion, storesTheTextExactlyAsGivenAndAnEmptyOneAsPresent)
{
    for (const std::string_view text : texts) {
        SCOPED_TRACE(text);
        QuillmereState state = fullState();
        engine.answerQuestion(state, identifier(602), std::string(text), now);
        ASSERT_TRUE(state.agentQuestions[1].answer.has_value());
        EXPECT_EQ(*state.agentQuestions[1].answer, text);
    }
}

TEST(AnswerQuestion, answeringAgainKeepsTheSecondAnswerAndItsTime)
{
    QuillmereState state = fullState();
    engine.answerQuestion(state, identifier(602), "Yes", now);
    engine.answerQuestion(state, identifier(602), "No", now - 5);
    EXPECT_EQ(state.agentQuestions[1].answer, "No");
    EXPECT_EQ(state.agentQuestions[1].answeredAt, now - 5);
}

TEST(AnswerQuestion, refusesAnUnknownIdentifier)
{
    QuillmereState withoutQuestions = fullState();
    withoutQuestions.agentQuestions.clear();
    // The other identifiers of a state are not questions.
    const auto unknown = {identifier(699), fullState().id, fullState().currentBlock->id};
    for (const QuillmereState& state : {fullState(), withoutQuestions}) {
        for (const Identifier& id : unknown) {
            SCOPED_TRACE(id.text());
            EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state, [&](QuillmereState& changed) {
                engine.answerQuestion(changed, id, "Yes", now);
            }));
        }
    }
}

TEST(AnswerQuestion, answersTheFirstOfTwoWithOneIdentifier)
{
    QuillmereState state = fullState();
    state.agentQuestions[0].id = state.agentQuestions[1].id;
    const AgentQuestion second = state.agentQuestions[1];
    engine.answerQuestion(state, second.id, "Yes", now);
    EXPECT_EQ(state.agentQuestions[0].answer, "Yes");
    EXPECT_EQ(state.agentQuestions[1], second);
}

TEST(AnswerQuestion, takesItsArgumentsFromTheStateItselfToo)
{
    QuillmereState state = fullState();
    engine.answerQuestion(state, state.agentQuestions[1].id, state.agentQuestions[1].question, now);
    EXPECT_EQ(state.agentQuestions[1].answer, state.agentQuestions[1].question);
}

TEST(AnswerQuestion, neverRemovesAQuestion)
{
    QuillmereState state = fullState();
    engine.answerQuestion(state, identifier(602), "Yes", now);
    EXPECT_EQ(state.agentQuestions.size(), 2U);
    EXPECT_TRUE(state.openQuestions().empty());
}

}  // namespace
}  // namespace quillmere::test
