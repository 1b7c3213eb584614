#include "screen/action_keys.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

using namespace screen;

std::vector<workspace::Situation> situations()
{
    std::vector<workspace::Situation> all;
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        all.push_back({stateIn(workflowState), {}, moment});
    }
    QuillmereState edited = stateWithScheduledBlock();
    edited.workflowState = WorkflowState::blockPlanning;
    all.push_back({edited, {}, moment});
    all.push_back({edited, {}, moment + 86'400});
    return all;
}

TEST(ActionKeys, areUniqueInEverySituation)
{
    for (const workspace::Situation& situation : situations()) {
        std::vector<std::string> keys = {"a", "q", "u", "U", "?"};  // of the screen itself
        for (const work::Action* const action : work::actionsFor(situation)) {
            keys.push_back(keyName(action->id));
        }
        std::sort(keys.begin(), keys.end());
        EXPECT_EQ(std::unique(keys.begin(), keys.end()), keys.end()) << testing::PrintToString(keys);
    }
}

TEST(ActionKeys, findTheirActions)
{
    for (const workspace::Situation& situation : situations()) {
        for (const work::Action* const action : work::actionsFor(situation)) {
            const std::optional<Key> key = keyNamed(keyName(action->id));
            ASSERT_TRUE(key) << action->label;
            EXPECT_EQ(actionOn(*key, situation), action) << action->label;
        }
    }
}

TEST(ActionKeys, findNothingThatIsNotPossible)
{
    const workspace::Situation running{stateIn(WorkflowState::focusing), {}, moment};
    EXPECT_EQ(actionOn(typed("p"), running), nullptr);
    EXPECT_EQ(actionOn(Key{Key::Kind::escape}, running), nullptr);
    EXPECT_EQ(actionOn(Key{Key::Kind::enter}, running), nullptr);
}

TEST(KeyNamed, isTheKeyOfAHint)
{
    EXPECT_EQ(keyNamed("^S"), withControl('s'));
    EXPECT_EQ(keyNamed("Tab"), Key{Key::Kind::tab});
    EXPECT_EQ(keyNamed("Enter"), Key{Key::Kind::enter});
    EXPECT_EQ(keyNamed("PgDn"), Key{Key::Kind::pageDown});
    EXPECT_EQ(keyNamed("?"), typed("?"));
    EXPECT_EQ(keyNamed("\u2191\u2193"), std::nullopt);
    EXPECT_EQ(keyNamed("any other key"), std::nullopt);
}

}  // namespace
}  // namespace quillmere::test
