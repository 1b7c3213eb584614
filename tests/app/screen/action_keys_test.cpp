#include "screen/action_keys.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

TEST(ActionKeys, areUniqueInEverySituation)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        const workspace::Situation situation{stateIn(workflowState), {}, moment};
        std::string keys = "aq";  // of the screen itself
        for (const work::Action* const action : work::actionsFor(situation)) {
            keys += keyOf(action->step);
        }
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ(std::unique(keys.begin(), keys.end()), keys.end()) << keys;
    }
}

TEST(ActionKeys, findTheirActions)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        const workspace::Situation situation{stateIn(workflowState), {}, moment};
        for (const work::Action* const action : work::actionsFor(situation)) {
            EXPECT_EQ(actionOn(keyOf(action->step), situation), action) << action->label;
        }
    }
}

TEST(ActionKeys, findAnActionThatTheEngineRefusesNow)
{
    const workspace::Situation running{stateIn(WorkflowState::focusing), {}, moment};
    ASSERT_TRUE(actionOn('r', running));
    EXPECT_EQ(actionOn('r', running)->step, Step::resumeFocus);
    EXPECT_EQ(actionOn('s', running), nullptr);
}

}  // namespace
}  // namespace quillmere::test
