// Which field a key of a file belongs to.
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::decoded;
using test::decodingError;

constexpr std::string_view otherIdentifier = R"("01890A5D-AC96-774B-BCCE-B302099A8057")";

/// A compact text with another spelling for every `key`.
std::string respelled(std::string text, const std::string& key, const std::string& spelling)
{
    const std::string member = '"' + key + "\":";
    for (std::size_t place = text.find(member); place != std::string::npos;
         place = text.find(member, place + 1)) {
        text.replace(place, member.size(), '"' + spelling + "\":");
    }
    return text;
}

/// A compact object with additional members before or after the others.
std::string withFront(const std::string& text, const std::string& members)
{
    return '{' + members + ',' + text.substr(1);
}
std::string withBack(const std::string& text, const std::string& members)
{
    return text.substr(0, text.size() - 1) + ',' + members + '}';
}

TEST(KeyInFile, matchesWhenItConvertsToTheFieldsKey)
{
    const QuillmereState state = test::fullState();
    for (const char* spelling : {"current_block", "currentBlock", "current_bLoCk", "current__block",
                                 "current_BLOCK", "current_\\u0062lock", "\\u0063urrentBlock"}) {
        SCOPED_TRACE(spelling);
        EXPECT_EQ(decoded<QuillmereState>(respelled(test::compactText(state), "current_block", spelling)),
                  state);
    }
}

TEST(KeyInFile, doesNotMatchWhenItConvertsToAnother)
{
    QuillmereState state = test::fullState();
    const std::string text = test::compactText(state);
    state.currentBlock.reset();
    for (const char* spelling :
         {"currentblock", "Current_block", "CurrentBlock", "CURRENT_BLOCK", "_current_block",
          "current_block_", "current-block", "current block", "current_block ", " current_block",
          "current_block\\u0000", "current_bloc", "current_blockx", "", "c"}) {
        SCOPED_TRACE(spelling);
        EXPECT_EQ(decoded<QuillmereState>(respelled(text, "current_block", spelling)), state);
    }
}

TEST(BlockOutcomeID, isWrittenAndReadBackWhenSet)
{
    const SessionPlan plan = test::samplePlan(1);
    const std::string text = test::compactText(plan);
    EXPECT_EQ(test::scalarOf(text, "block_outcome_id"), '"' + plan.blockOutcomeID->text() + '"');
    EXPECT_EQ(decoded<SessionPlan>(text).blockOutcomeID, plan.blockOutcomeID);
}

TEST(BlockOutcomeID, hasNoKeyWhenAbsent)
{
    SessionPlan plan = test::samplePlan(1);
    plan.blockOutcomeID.reset();
    EXPECT_EQ(test::compactText(plan).find("outcome_id"), std::string::npos);
    EXPECT_EQ(decoded<SessionPlan>(test::compactText(plan)), plan);
}

TEST(BlockOutcomeID, isFoundUnderEveryKeyThatConvertsToASmallDAndUnderNoOther)
{
    const SessionPlan plan = test::samplePlan(1);
    const std::string text = test::compactText(plan);
    for (const char* spelling : {"block_outcome_id", "block_outcome_ID", "blockOutcomeId", "block_OUTCOME_Id",
                                 "block_outcome_iD", "blockOutcome_id"}) {
        SCOPED_TRACE(spelling);
        const std::string found = respelled(text, "block_outcome_id", spelling);
        // The first word is not converted, so a capital in it can match.
        EXPECT_EQ(decoded<SessionPlan>(found).blockOutcomeID, plan.blockOutcomeID);
    }
    for (const char* spelling :
         {"blockOutcomeID", "BLOCK_OUTCOME_ID", "block_outcome_i_d", "block_outcomeId"}) {
        SCOPED_TRACE(spelling);
        const std::string lost = respelled(text, "block_outcome_id", spelling);
        EXPECT_EQ(decoded<SessionPlan>(lost).blockOutcomeID, std::nullopt);
    }
}

TEST(RequiredKey, isMissedWhenItsSpellingConvertsToAnother)
{
    const std::string text = test::compactText(Outcome{.id = test::identifier(1), .title = "A"});
    for (const char* spelling : {"Id", "ID", "_id", "i_d", "identifier"}) {
        SCOPED_TRACE(spelling);
        const auto error = decodingError<Outcome>(respelled(text, "id", spelling));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "id");
        EXPECT_EQ(error->found(), "nothing");
    }
}

TEST(ErrorPath, namesTheKeyAsFilesHaveItHoweverItWasSpelled)
{
    const std::string text = respelled(test::compactText(test::samplePlan(1)), "first_action", "firstAction");
    const auto error = decodingError<SessionPlan>(test::withScalar(text, "firstAction", "3"));
    ASSERT_TRUE(error);
    EXPECT_EQ(error->path(), "first_action");
}

TEST(TwoKeysThatConvertToOne, leaveTheLastValue)
{
    const std::string text = test::compactText(Outcome{.id = test::identifier(1), .title = "first"});
    EXPECT_EQ(decoded<Outcome>(withBack(text, R"("title":"last")")).title, "last");
    EXPECT_EQ(decoded<Outcome>(withFront(text, R"("title":"before")")).title, "first");
    EXPECT_EQ(decoded<Outcome>(withBack(text, R"("ti\u0074le":"last")")).title, "last");

    const std::string plan = test::compactText(test::samplePlan(1));
    EXPECT_EQ(decoded<SessionPlan>(withBack(plan, R"("firstAction":"last")")).firstAction, "last");
    EXPECT_EQ(decoded<SessionPlan>(withBack(plan, R"("firstAction":"a","first_action":"last")")).firstAction,
              "last");
    EXPECT_EQ(decoded<SessionPlan>(withFront(plan, R"("firstAction":"a","first_ACTION":"b")")).firstAction,
              "First action 1");
}

TEST(TwoKeysThatConvertToOne, leaveTheLastValueAlsoWhenAnEarlierOneIsOfAWrongType)
{
    const std::string text = test::compactText(test::samplePlan(1));
    for (const std::string_view wrong : {"3", "null", "true", "[]", R"({"a":[1,{"b":null}]})", "1e400"}) {
        SCOPED_TRACE(wrong);
        EXPECT_EQ(decoded<SessionPlan>(withFront(text, R"("firstAction":)" + std::string(wrong))),
                  test::samplePlan(1));
        EXPECT_EQ(decoded<SessionPlan>(withFront(text, R"("id":)" + std::string(wrong))),
                  test::samplePlan(1));
        EXPECT_EQ(decoded<SessionPlan>(withFront(text, R"("blockOutcomeId":)" + std::string(wrong))),
                  test::samplePlan(1));
    }
    const std::string state = test::compactText(test::fullState());
    EXPECT_EQ(
        decoded<QuillmereState>(withFront(state, R"("currentBlock":{"id":3},"agentQuestions":[{"id":1}])")),
        test::fullState());
}

TEST(TwoKeysThatConvertToOne, failWhenTheLastValueIsOfAWrongType)
{
    const std::string text = test::compactText(test::samplePlan(1));
    for (const std::string_view wrong : {"3", "null", "[]"}) {
        const auto error =
            decodingError<SessionPlan>(withBack(text, R"("firstAction":)" + std::string(wrong)));
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "first_action");
    }
}

TEST(TwoKeysThatConvertToOne, areAbsentOrSuppliedWhenTheLastIsNull)
{
    SessionPlan plan = test::samplePlan(1);
    const std::string text = withBack(test::compactText(plan), R"("blockOutcomeId":null)");
    plan.blockOutcomeID.reset();
    EXPECT_EQ(decoded<SessionPlan>(text), plan);

    const std::string review = withBack(test::compactText(test::sampleReview(1)), R"("id":null)");
    EXPECT_NE(decoded<SessionReview>(review).id, test::sampleReview(1).id);
    EXPECT_NE(decoded<SessionReview>(review).id, decoded<SessionReview>(review).id);
    EXPECT_EQ(decoded<SessionReview>(withBack(review, R"("id":)" + std::string(otherIdentifier))).id,
              Identifier::fromText(otherIdentifier.substr(1, 36)));
}

TEST(TwoKeysThatConvertToOne, leaveNothingOfAnEarlierList)
{
    Block block = test::sampleBlock(1);
    const std::string text = withBack(test::compactText(block), R"("outcomes":[])");
    block.outcomes.clear();
    EXPECT_EQ(decoded<Block>(text), block);
}

TEST(TwoKeysThatConvertToOne, leaveNothingOfAnEarlierRecord)
{
    // Values that the last record lacks must not come from the record before it.
    const WorkSession session = test::blockInWork(1, 1).sessions.front();
    SessionPlan plan = test::samplePlan(9);
    plan.blockOutcomeID.reset();
    const std::string twoPlans = withBack(test::compactText(session), R"("plan":)" + test::compactText(plan));
    EXPECT_EQ(decoded<WorkSession>(twoPlans).plan, plan);

    QuillmereState state = test::fullState();
    const Block bare = test::sampleBlock(2);
    const std::string twoBlocks =
        withBack(test::compactText(state), R"("currentBlock":)" + test::compactText(bare));
    state.currentBlock = bare;
    EXPECT_EQ(decoded<QuillmereState>(twoBlocks), state);
}

TEST(KeysInFile, mayStandInAnyOrder)
{
    EXPECT_EQ(decoded<Outcome>(R"({"title":"A","id":)" + std::string(otherIdentifier) + "}"),
              decoded<Outcome>(R"({"id":)" + std::string(otherIdentifier) + R"(,"title":"A"})"));
    // In reverse order, with unknown keys in between.
    const SessionPlan plan = test::samplePlan(1);
    const std::string text = test::compactText(plan);
    std::string reversed = "{\"x\":1";
    for (const char* key : {"nicu_framing", "morale", "intended_outcome", "id", "hazards_mitigation",
                            "first_action", "energy", "block_outcome_id"}) {
        reversed += std::string(",\"x\":[],\"") + key + "\":" + test::scalarOf(text, key);
    }
    EXPECT_EQ(decoded<SessionPlan>(reversed + "}"), plan);
}

}  // namespace
}  // namespace quillmere
