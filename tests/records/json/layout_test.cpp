// The two layouts of the text.
#include <quillmere/records/json/json_encoder.hpp>
#include <quillmere/store/state_store.hpp>
#include <quillmere/widget/widget_snapshot.hpp>

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::compactText;
using test::prettyText;

QuillmereState smallState()
{
    QuillmereState state = test::stateIn(WorkflowState::idle);
    state.agentQuestions = {{.id = test::identifier(601),
                             .question = "Why?",
                             .createdAt = test::moment,
                             .answer = std::nullopt,
                             .answeredAt = std::nullopt}};
    return state;
}

TEST(PrettyLayout, hasAMemberALineTwoSpacesALevelAndSpacesAroundColons)
{
    EXPECT_EQ(prettyText(smallState()), R"({
  "agent_questions" : [
    {
      "created_at" : "2026-11-15T15:00:00Z",
      "id" : "9F1C2A4E-0B7D-4C55-8E21-000000000259",
      "question" : "Why?"
    }
  ],
  "block_history" : [],
  "break_extension_seconds" : 0,
  "id" : "9F1C2A4E-0B7D-4C55-8E21-000000000001",
  "updated_at" : "2026-11-15T15:00:00Z",
  "workflow_state" : "idle"
})");
}

TEST(CompactLayout, isOneLineWithoutWhiteSpace)
{
    EXPECT_EQ(compactText(smallState()),
              R"({"agent_questions":[{"created_at":"2026-11-15T15:00:00Z",)"
              R"("id":"9F1C2A4E-0B7D-4C55-8E21-000000000259","question":"Why?"}],"block_history":[],)"
              R"("break_extension_seconds":0,"id":"9F1C2A4E-0B7D-4C55-8E21-000000000001",)"
              R"("updated_at":"2026-11-15T15:00:00Z","workflow_state":"idle"})");
}

TEST(Layout, hasNoLineBreakAtTheEnd)
{
    EXPECT_EQ(prettyText(smallState()).back(), '}');
    EXPECT_EQ(compactText(smallState()).back(), '}');
}

TEST(Layout, writesEmptyListsAsBracketsWithNothingBetween)
{
    Block block = test::sampleBlock(1);
    block.outcomes.clear();
    EXPECT_NE(prettyText(block).find("\n  \"outcomes\" : [],\n  \"sessions\" : [],\n"), std::string::npos);
    EXPECT_NE(compactText(block).find(",\"outcomes\":[],\"sessions\":[],"), std::string::npos);
}

TEST(Layout, indentsTextsInListsLikeAllElse)
{
    WidgetSnapshot snapshot = WidgetSnapshot::empty(test::moment);
    snapshot.openQuestions = {"One?", "Two?"};
    EXPECT_NE(prettyText(snapshot).find("\n  \"open_questions\" : [\n    \"One?\",\n    \"Two?\"\n  ],\n"),
              std::string::npos);
    EXPECT_NE(compactText(snapshot).find(",\"open_questions\":[\"One?\",\"Two?\"],"), std::string::npos);
}

/// Checks the order of the keys in all objects of a document. ordered_json keeps the order of the text.
void expectSortedKeys(const nlohmann::ordered_json& value)
{
    std::string previous;
    for (const auto& [key, member] : value.items()) {
        if (value.is_object()) {
            EXPECT_LT(previous, key);
            EXPECT_EQ(key.find_first_not_of("abcdefghijklmnopqrstuvwxyz_"), std::string::npos) << key;
            previous = key;
        }
        if (member.is_structured()) {
            expectSortedKeys(member);
        }
    }
}

TEST(Keys, standInByteOrderOfTheirSnakeCaseSpellingAtEveryLevel)
{
    const QuillmereState state = test::completeState();
    for (const std::string& text : {prettyText(state), compactText(state)}) {
        expectSortedKeys(nlohmann::ordered_json::parse(text));
    }
    const StateStore store("unused", {});
    expectSortedKeys(nlohmann::ordered_json::parse(prettyText(store.agentSnapshot(state, std::nullopt))));
    expectSortedKeys(
        nlohmann::ordered_json::parse(compactText(WidgetSnapshot::make(state, state.updatedAt))));
}

TEST(Values, ofEnumerationsAreNotConvertedToSnakeCase)
{
    const std::string text = compactText(test::stateIn(WorkflowState::blockPlanning));
    EXPECT_NE(text.find(R"("workflow_state":"blockPlanning")"), std::string::npos);
}

TEST(Layouts, holdTheSameValues)
{
    const QuillmereState state = test::completeState();
    EXPECT_EQ(nlohmann::json::parse(prettyText(state)), nlohmann::json::parse(compactText(state)));
}

TEST(StoreEncoder, isThePrettyOne)
{
    const QuillmereState state = test::completeState();
    EXPECT_EQ(StateStore::encoder().encode(state).view(), prettyText(state));
}

TEST(PrettyLayout, indentsEveryDepthByTwoSpaces)
{
    // The expected text is built by separate code, for the most deeply nested record.
    const std::string text = prettyText(test::completeState());
    std::size_t depth = 0;
    std::size_t lines = 0;
    for (std::size_t start = 0; start < text.size(); ++lines) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        const std::string line = text.substr(start, end - start);
        const std::size_t indentation = line.find_first_not_of(' ');
        const bool closes = line[indentation] == '}' || line[indentation] == ']';
        depth -= closes ? 1 : 0;
        ASSERT_EQ(indentation, 2 * depth) << line;
        depth += line.back() == '{' || line.back() == '[' ? 1 : 0;
        ASSERT_NE(line.back(), ' ') << line;
        start = end + 1;
    }
    EXPECT_EQ(depth, 0U);
    EXPECT_GT(lines, 100U);
}

}  // namespace
}  // namespace quillmere
