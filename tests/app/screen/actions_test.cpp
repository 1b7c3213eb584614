#include "screen/actions.hpp"

#include "program_testing.hpp"
#include "screen/forms/forms.hpp"

#include <quillmere/engine/transition.hpp>
#include <quillmere/engine/workflow_engine.hpp>

#include <algorithm>
#include <set>

namespace quillmere::test {
namespace {

using namespace screen;
using workspace::Situation;

Situation at(const QuillmereState& state, Instant now = moment) { return {state, {}, now}; }

std::string keysIn(const Situation& situation)
{
    std::string keys;
    for (const Action* const action : actionsFor(situation)) {
        keys += action->key;
    }
    return keys;
}

/// What the engine does by itself.
constexpr Step stepsOfNobody[] = {Step::evaluateSchedule, Step::announceBreakEnd};

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

TEST(Actions, haveAKeyForEveryStepOfAPersonInSomeSituation)
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
        const bool isOfNobody = std::find(std::begin(stepsOfNobody), std::end(stepsOfNobody), row.value) !=
                                std::end(stepsOfNobody);
        EXPECT_EQ(reachable.count(row.value), isOfNobody ? 0U : 1U) << row.operation;
    }
}

TEST(Actions, areWhatTheEngineThenAccepts)
{
    for (const Situation& situation : situations()) {
        for (const Action* const action : actionsFor(situation)) {
            QuillmereState state = situation.state;
            EXPECT_NO_THROW(action->apply(state, moment)) << action->label;
            EXPECT_EQ(state.workflowState, transition(action->step).result) << action->label;
        }
    }
}

TEST(Actions, haveKeysOfTheirOwn)
{
    for (const Situation& situation : situations()) {
        std::string keys = keysIn(situation) + "aq";
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ(std::unique(keys.begin(), keys.end()), keys.end()) << keys;
    }
}

TEST(Actions, areFoundWhereTheEngineWouldRefuseThem)
{
    const Situation running = at(stateIn(WorkflowState::focusing));
    ASSERT_TRUE(actionOn('r', running));
    QuillmereState state = running.state;
    EXPECT_THROW(actionOn('r', running)->apply(state, moment), WorkflowError);
    EXPECT_EQ(actionOn('s', running), nullptr);
}

TEST(Actions, skipABreakBeforeItsTimeAndEndItAfter)
{
    const QuillmereState state = stateIn(WorkflowState::breaking);
    EXPECT_EQ(actionOn('s', at(state, moment + 299))->label, "skip the break");
    EXPECT_EQ(actionOn('s', at(state, moment + 300))->label, "end the break");
    EXPECT_EQ(actionOn('s', at(state, moment + 9'000))->label, "end the break");
}

TEST(Actions, lengthenABreakByFiveMinutes)
{
    QuillmereState state = stateIn(WorkflowState::breaking);
    actionOn('e', at(state))->apply(state, moment);
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
