// The limits on the questions of agents.
#include "agent/asking.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using agent::requireRoom;
using agent::ToolRefusal;

/// A state in which `count` questions were asked at `askedAt`.
QuillmereState stateWithQuestions(unsigned count, Instant askedAt, bool answered)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 0; number < count; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "?",
                                        .createdAt = askedAt,
                                        .answer = answered ? std::optional<std::string>("!") : std::nullopt,
                                        .answeredAt = answered ? std::optional(askedAt) : std::nullopt});
    }
    return state;
}

TEST(RequireRoom, allowsTenQuestionsAMinute)
{
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(9, moment, true), moment));
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment, true), moment), ToolRefusal);
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment, true), moment + 60), ToolRefusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(10, moment, true), moment + 61));
}

TEST(RequireRoom, countsQuestionsInTheFutureAsRecent)
{
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment + 30, true), moment), ToolRefusal);
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment + 3600, true), moment), ToolRefusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(9, moment + 3600, true), moment));
}

TEST(RequireRoom, allowsFiftyOpenQuestions)
{
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(49, moment - 3600, false), moment));
    EXPECT_THROW(requireRoom(stateWithQuestions(50, moment - 3600, false), moment), ToolRefusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(500, moment - 3600, true), moment));
}

}  // namespace
}  // namespace quillmere::test
