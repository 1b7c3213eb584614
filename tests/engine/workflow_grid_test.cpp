// The frame that all operations share: every one of them in every workflow state, with all else as the
// operation wants it, so that the workflow state alone decides.
#include <quillmere/engine/workflow_engine.hpp>

#include <cmath>
#include <set>
#include <string>
#include <type_traits>

#include "engine_testing.hpp"
#include "workflow_map.hpp"

namespace quillmere::test {
namespace {

/// Calls `check(arrow, state, isAccepted)` for the whole grid.
template <class Check>
void forTheWholeGrid(Check check)
{
    for (const Arrow& arrow : arrows()) {
        for (const WorkflowState workflowState : allCases<WorkflowState>()) {
            SCOPED_TRACE(nameOf(arrow) + " in " + std::string(rawValue(workflowState)));
            check(arrow, startOf(arrow, workflowState), arrow.from.value_or(workflowState) == workflowState);
        }
    }
}

TEST(Grid, coversEveryOperationInAllEightStates)
{
    std::set<std::string> operations;
    std::size_t squares = 0;
    forTheWholeGrid([&](const Arrow& arrow, const QuillmereState&, bool) {
        operations.insert(std::string(arrow.operation));
        ++squares;
    });
    EXPECT_EQ(operations.size(), 19U);
    EXPECT_EQ(squares, 21U * 8U);
}

TEST(Grid, anAcceptedOperationLeadsWhereTheMapSays)
{
    forTheWholeGrid([](const Arrow& arrow, QuillmereState state, bool isAccepted) {
        if (!isAccepted) {
            return;
        }
        const WorkflowState expected = arrow.to.value_or(state.workflowState);
        EXPECT_TRUE(arrow.walk(state, now));
        EXPECT_EQ(rawValue(state.workflowState), rawValue(expected));
    });
}

TEST(Grid, everySuccessSetsUpdatedAtToNow)
{
    // Also to a now that lies before the last change: the clock may have been set back.
    for (const Instant at : {now, moment - 1'000'000, Instant(0.25)}) {
        forTheWholeGrid([&](const Arrow& arrow, QuillmereState state, bool isAccepted) {
            // These two wait for a time; before it they have nothing to do.
            const bool waits = arrow.elsewhere == Elsewhere::hasNothingToDo && at < now;
            if (isAccepted && !waits) {
                EXPECT_TRUE(arrow.walk(state, at));
                EXPECT_EQ(state.updatedAt, at);
            }
        });
    }
}

TEST(Grid, anyOtherStateIsRefusedWithInvalidTransitionAndStaysAsItWas)
{
    forTheWholeGrid([](const Arrow& arrow, const QuillmereState& state, bool isAccepted) {
        if (!isAccepted && arrow.elsewhere == Elsewhere::isRefused) {
            EXPECT_TRUE(isRefused(WorkflowError::invalidTransition, state,
                                  [&](QuillmereState& changed) { arrow.walk(changed, now); }));
        }
    });
}

TEST(Grid, anEvaluationElsewhereReportsNothingAndChangesNothing)
{
    forTheWholeGrid([](const Arrow& arrow, const QuillmereState& before, bool isAccepted) {
        if (!isAccepted && arrow.elsewhere == Elsewhere::hasNothingToDo) {
            QuillmereState state = before;
            EXPECT_FALSE(arrow.walk(state, now));
            EXPECT_TRUE(isExactly(state, before));
        }
    });
}

TEST(Grid, aStateThatIsCompleteAcceptsQuestionsOnly)
{
    forTheWholeGrid([](const Arrow& arrow, const QuillmereState& state, bool isAccepted) {
        if (state.workflowState == WorkflowState::complete) {
            const bool isAboutQuestions =
                arrow.operation == "addQuestion" || arrow.operation == "answerQuestion";
            EXPECT_EQ(isAccepted, isAboutQuestions);
        }
    });
}

TEST(Grid, noOperationTouchesTheIdentifierOfTheState)
{
    forTheWholeGrid([](const Arrow& arrow, QuillmereState state, bool isAccepted) {
        if (isAccepted) {
            const Identifier before = state.id;
            arrow.walk(state, now);
            EXPECT_EQ(state.id, before);
        }
    });
}

TEST(Grid, onlyCompleteBlockReviewTouchesTheHistory)
{
    forTheWholeGrid([](const Arrow& arrow, QuillmereState state, bool isAccepted) {
        if (isAccepted) {
            const std::vector<Block> before = state.blockHistory;
            arrow.walk(state, now);
            EXPECT_EQ(state.blockHistory == before, arrow.operation != "completeBlockReview");
        }
    });
}

TEST(Grid, onlyTheQuestionOperationsTouchTheQuestions)
{
    forTheWholeGrid([](const Arrow& arrow, QuillmereState state, bool isAccepted) {
        if (isAccepted) {
            const std::vector<AgentQuestion> before = state.agentQuestions;
            arrow.walk(state, now);
            const bool isAboutQuestions = arrow.operation.ends_with("Question");
            EXPECT_EQ(state.agentQuestions == before, !isAboutQuestions);
        }
    });
}

TEST(Grid, aNowThatIsNotANumberIsAcceptedByAllThatDoNotReadTheTime)
{
    for (const Arrow& arrow : arrows()) {
        if (arrow.elsewhere == Elsewhere::isRefused) {
            SCOPED_TRACE(nameOf(arrow));
            QuillmereState state = startOf(arrow);
            const WorkflowState expected = arrow.to.value_or(state.workflowState);
            EXPECT_EQ(refusalOf([&] { arrow.walk(state, noInstant); }), std::nullopt);
            EXPECT_EQ(rawValue(state.workflowState), rawValue(expected));
            EXPECT_TRUE(std::isnan(state.updatedAt.secondsSince1970()));
        }
    }
}

TEST(Grid, aWorkflowStateThatIsNoCaseIsRefusedLikeAnyOther)
{
    for (const Arrow& arrow : arrows()) {
        if (arrow.from) {
            SCOPED_TRACE(nameOf(arrow));
            QuillmereState state = startOf(arrow, static_cast<WorkflowState>(8));
            const QuillmereState before = state;
            bool didSomething = false;
            const auto refusal = refusalOf([&] { didSomething = arrow.walk(state, now); });
            EXPECT_FALSE(didSomething);
            EXPECT_EQ(refusal.has_value(), arrow.elsewhere == Elsewhere::isRefused);
            EXPECT_TRUE(isExactly(state, before));
        }
    }
}

TEST(WorkflowEngine, holdsNothing)
{
    EXPECT_TRUE(std::is_empty_v<WorkflowEngine>);
    EXPECT_TRUE(std::is_trivial_v<WorkflowEngine>);
}

}  // namespace
}  // namespace quillmere::test
