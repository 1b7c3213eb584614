// The limits on the questions of agents, and asking when memory runs out.
#include "agent/asking.hpp"

#include "failing_run.hpp"
#include "support/failing_allocations.hpp"

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

TEST(RequireRoom, doesNotCountQuestionsInTheFutureAsRecent)
{
    for (const double ahead : {1.0, 30.0, 3600.0, 4 * 366 * 86'400.0}) {
        SCOPED_TRACE(ahead);
        QuillmereState state = stateWithQuestions(20, moment + ahead, true);
        EXPECT_NO_THROW(requireRoom(state, moment));
        const QuillmereState asked = stateWithQuestions(10, moment, true);
        state.agentQuestions.insert(state.agentQuestions.end(), asked.agentQuestions.begin(),
                                    asked.agentQuestions.end());
        EXPECT_THROW(requireRoom(state, moment), ToolRefusal);
    }
}

TEST(RequireRoom, countsQuestionsInTheFutureAsOpen)
{
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(49, moment + 3600, false), moment));
    EXPECT_THROW(requireRoom(stateWithQuestions(50, moment + 3600, false), moment), ToolRefusal);
}

TEST(RequireRoom, allowsFiftyOpenQuestions)
{
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(49, moment - 3600, false), moment));
    EXPECT_THROW(requireRoom(stateWithQuestions(50, moment - 3600, false), moment), ToolRefusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(500, moment - 3600, true), moment));
}

TEST(AskThePerson, tellsThatTheQuestionIsSavedWhenMemoryRunsOutAfterwards)
{
    Person person;
    const auto workspace = workspace::Workspace::in(
        person.directory(), [&] { return person.now; }, person.stateHome());
    std::size_t allocations = 0;
    const auto refusalOf = [&](std::size_t allocation) -> std::optional<std::string> {
        person.has(stateIn(WorkflowState::idle));
        const agent::protocol::Call call = agent::askThePerson(workspace, "Which one of the two?", {});
        allocations = allocationsMade();
        failAllocationAfter(allocation);
        try {
            const agent::protocol::Outcome outcome = call({});
            stopFailingAllocations();
            allocations = allocationsMade() - allocations;
            return std::get<agent::protocol::ToolResult>(outcome).refusal;
        } catch (const std::bad_alloc&) {
            stopFailingAllocations();
            return std::nullopt;
        }
    };
    refusalOf(undisturbed);  // makes the allocations that happen once in a process
    refusalOf(undisturbed);
    int told = 0;
    // From the last allocation back to the save.
    for (std::size_t allocation = allocations; allocation > 0; --allocation) {
        const std::optional<std::string> refusal = refusalOf(allocation - 1);
        if (person.state().agentQuestions.empty()) {
            break;
        }
        ASSERT_TRUE(refusal && (refusal->empty() || refusal->starts_with("The question is saved")));
        told += refusal->empty() ? 0 : 1;
    }
    EXPECT_GT(told, 0);
}

}  // namespace
}  // namespace quillmere::test
