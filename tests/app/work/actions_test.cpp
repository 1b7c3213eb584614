#include "work/actions.hpp"

#include "program_testing.hpp"
#include "work/forms/forms.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <set>

namespace quillmere::test {
namespace {

using namespace work;
using workspace::Situation;

Situation at(const QuillmereState& state, Instant now = moment) { return {state, {}, now}; }

/// Steps that the engine takes by itself.
constexpr Step stepsOfTheEngine[] = {Step::evaluateSchedule, Step::announceBreakEnd};

std::vector<Situation> situations()
{
    std::vector<Situation> all;
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        all.push_back(at(stateIn(workflowState)));
    }
    all.push_back(at(stateWithScheduledBlock()));
    QuillmereState paused = stateIn(WorkflowState::focusing);
    paused.currentBlock->sessions.back().pausedAt = moment;
    all.push_back(at(paused));
    QuillmereState last = stateIn(WorkflowState::blockReview);
    last.workflowState = WorkflowState::sessionReview;
    all.push_back(at(last));
    return all;
}

TEST(Actions, coverEveryStepOfAPersonTogetherWithTheForms)
{
    std::set<Step> reachable = {Step::addQuestion, Step::answerQuestion, Step::scheduleBlock};
    for (const Situation& situation : situations()) {
        for (const Action* const action : actionsFor(situation)) {
            reachable.insert(action->step);
        }
        if (const auto subject = subjectFor(situation.state)) {
            reachable.insert(stepOf(formFor(*subject, situation.state, moment), situation.state));
        }
    }
    for (const Transition& row : transition_table::rows) {
        const bool isOfTheEngine = std::find(std::begin(stepsOfTheEngine), std::end(stepsOfTheEngine),
                                             row.value) != std::end(stepsOfTheEngine);
        EXPECT_EQ(reachable.count(row.value), isOfTheEngine ? 0U : 1U) << row.operation;
    }
}

TEST(Actions, areAcceptedByTheEngine)
{
    for (const Situation& situation : situations()) {
        for (const Action* const action : actionsFor(situation)) {
            QuillmereState state = situation.state;
            EXPECT_NO_THROW(action->apply(state, moment)) << action->label;
            EXPECT_EQ(state.workflowState, transition(action->step).result) << action->label;
        }
    }
}

TEST(Actions, areFoundAtTheirPlaceInTheWorkflowAlsoWhenTheEngineRefusesThem)
{
    const Situation running = at(stateIn(WorkflowState::focusing));
    ASSERT_TRUE(actionFor(Step::resumeFocus, running));
    QuillmereState state = running.state;
    EXPECT_THROW(actionFor(Step::resumeFocus, running)->apply(state, moment), WorkflowError);
    EXPECT_EQ(actionFor(Step::endBreak, running), nullptr);
}

TEST(Actions, skipABreakBeforeItsTimeAndEndItAfter)
{
    const QuillmereState state = stateIn(WorkflowState::breaking);
    EXPECT_EQ(actionFor(Step::endBreak, at(state, moment + 299))->label, "skip the break");
    EXPECT_EQ(actionFor(Step::endBreak, at(state, moment + 300))->label, "end the break");
    EXPECT_EQ(actionFor(Step::endBreak, at(state, moment + 9'000))->label, "end the break");
}

TEST(Actions, lengthenABreakByFiveMinutes)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    actionFor(Step::extendBreak, at(state))->apply(state, moment);
    EXPECT_EQ(state.breakExtensionSeconds, 300);
}

TEST(Actions, askBeforeSomethingIsLost)
{
    for (const Situation& situation : situations()) {
        for (const Action* const action : actionsFor(situation)) {
            const bool loses = action->step == Step::cancelScheduledBlock || action->step == Step::endFocus;
            EXPECT_EQ(!action->question.empty(), loses) << action->label;
        }
    }
}

}  // namespace
}  // namespace quillmere::test
