// Whole records through JSON and back.
#include <quillmere/records/quillmere_state.hpp>

#include <gtest/gtest.h>

#include <limits>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

using test::decoded;
using test::moment;

template <class Record>
void expectRoundTrip(const Record& record)
{
    EXPECT_EQ(decoded<Record>(test::compactText(record)), record);
    EXPECT_EQ(decoded<Record>(test::prettyText(record)), record);
}

/// Texts with characters of all kinds, in UTF-8.
constexpr const char* difficultText =
    "Line 1\nLine 2\t\"quoted\" \\ / \xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80 \x01\x7F";

TEST(EveryRecord, readsBackAsItWasWritten)
{
    const QuillmereState state = test::completeState();
    expectRoundTrip(state);
    expectRoundTrip(*state.currentBlock);
    expectRoundTrip(state.currentBlock->outcomes.front());
    expectRoundTrip(state.currentBlock->sessions.back());
    expectRoundTrip(state.currentBlock->sessions.back().plan);
    expectRoundTrip(*state.currentBlock->sessions.back().review);
    expectRoundTrip(*state.currentBlock->reflection);
    expectRoundTrip(state.agentQuestions.front());
    expectRoundTrip(state.agentQuestions.back());
}

TEST(EveryState, readsBackAsItWasWritten)
{
    for (const WorkflowState workflowState : allCases<WorkflowState>()) {
        expectRoundTrip(test::stateIn(workflowState));
    }
    expectRoundTrip(test::stateWithScheduledBlock());
    expectRoundTrip(test::fullState());
    expectRoundTrip(QuillmereState::initial(moment));
}

TEST(Record, keepsDifficultTextsAndExtremeNumbers)
{
    Block block = test::completeBlock();
    block.whyValue = difficultText;
    block.outcomes[0].title = std::string(1, '\0');
    block.cycleCount = std::numeric_limits<std::int64_t>::min();
    block.focusDurationSeconds = std::numeric_limits<double>::max();
    block.breakDurationSeconds = std::numeric_limits<double>::denorm_min();
    block.sessions[0].number = std::numeric_limits<std::int64_t>::max();
    block.sessions[0].plan.energy = -1;
    block.sessions[0].plannedDurationSeconds = 0x1p63;
    expectRoundTrip(block);
}

TEST(Record, keepsTheOrderOfItsLists)
{
    Block block = test::sampleBlock(1);
    block.outcomes.clear();
    for (unsigned number = 0; number < 100; ++number) {
        block.outcomes.push_back(
            {.id = test::identifier(number * 7919 % 101), .title = std::to_string(number)});
    }
    expectRoundTrip(block);
}

TEST(StateFileWithoutIdentifier, loadsWithANewOneOnEveryLoadUntilItIsWrittenAgain)
{
    const QuillmereState state = test::fullState();
    const std::string text = test::compactText(state);
    const std::string member = "\"id\":\"" + state.id.text() + "\",";
    std::string without = text;
    without.erase(without.find(member), member.size());

    QuillmereState first = decoded<QuillmereState>(without);
    QuillmereState second = decoded<QuillmereState>(without);
    EXPECT_NE(first.id, second.id);
    EXPECT_NE(first.id, state.id);
    EXPECT_EQ(decoded<QuillmereState>(test::compactText(first)).id, first.id);
    first.id = second.id = state.id;
    EXPECT_EQ(first, state);
    EXPECT_EQ(second, state);
}

TEST(SessionReviewWithoutIdentifier, loadsWithANewOneOnEveryLoad)
{
    const QuillmereState state = test::fullState();
    const SessionReview& review = *state.currentBlock->sessions[0].review;
    const std::string member = "\"id\":\"" + review.id.text() + "\",";
    // The state has this review twice, in the current block and in the history.
    std::string text = test::compactText(state);
    const std::size_t place = text.find(member, text.find("\"current_block\""));
    text.erase(place, member.size());

    const auto idOf = [](const QuillmereState& read) { return read.currentBlock->sessions[0].review->id; };
    EXPECT_NE(idOf(decoded<QuillmereState>(text)), review.id);
    EXPECT_NE(idOf(decoded<QuillmereState>(text)), idOf(decoded<QuillmereState>(text)));
    QuillmereState read = decoded<QuillmereState>(text);
    read.currentBlock->sessions[0].review->id = review.id;
    EXPECT_EQ(read, state);
}

TEST(ToleratedIdentifier, failsWhenMalformed)
{
    for (const char* wrong : {R"("")", R"("none")", "3", "[]", R"("9F1C2A4E0B7D4C558E213A6B5D0C7F10")"}) {
        const std::string review = test::withScalar(test::compactText(test::sampleReview(1)), "id", wrong);
        const auto error = test::decodingError<SessionReview>(review);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), "id");
    }
}

TEST(StateFile, failsToLoadWithoutAList)
{
    for (const char* key : {"break_extension_seconds", "agent_questions", "block_history"}) {
        SCOPED_TRACE(key);
        QuillmereState state = QuillmereState::initial(moment);
        std::string text = test::compactText(state);
        const std::string quoted = '"' + std::string(key) + '"';
        text.replace(text.find(quoted), quoted.size(), "\"another_key\"");
        const auto error = test::decodingError<QuillmereState>(text);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->path(), key);
        EXPECT_EQ(error->found(), "nothing");
    }
}

TEST(Identifiers, areReadInEitherCaseAndWrittenInUpperCase)
{
    const std::string text = R"({"id":"9f1c2a4e-0b7d-4c55-8e21-3a6b5d0c7f10","title":""})";
    EXPECT_EQ(test::compactText(decoded<Outcome>(text)),
              R"({"id":"9F1C2A4E-0B7D-4C55-8E21-3A6B5D0C7F10","title":""})");
}

TEST(DecodingErrorPath, leadsThroughRecordsAndLists)
{
    QuillmereState state = test::fullState();
    state.currentBlock = test::blockInWork(1, 3);
    std::string text = test::compactText(state);
    // The third session's energy; the sessions of the current block come first in the file.
    std::size_t place = text.find("\"current_block\"");
    for (int session = 0; session < 3; ++session) {
        place = text.find("\"energy\":4", place + 1);
    }
    text.replace(place, 10, "\"energy\":4.5");
    // "block_history" comes first, in byte order of the keys.
    ASSERT_LT(text.find("\"block_history\""), text.find("\"current_block\""));
    const auto error = test::decodingError<QuillmereState>(text);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->path(), "current_block.sessions[2].plan.energy");
    EXPECT_EQ(error->expected(), "a whole number of 64 bits");
    EXPECT_EQ(error->found(), "4.5");
    EXPECT_STREQ(error->what(),
                 "current_block.sessions[2].plan.energy: expected a whole number of 64 bits, found 4.5");
}

TEST(DecodingErrorPath, namesTheFirstBadElementOfAList)
{
    std::string text = test::compactText(test::fullState());
    const std::string good = "\"question\":\"";
    for (std::size_t place = text.find(good); place != std::string::npos;
         place = text.find(good, place + 1)) {
        text.replace(place, good.size(), "\"question\":3,\"x\":\"");
    }
    const auto error = test::decodingError<QuillmereState>(text);
    ASSERT_TRUE(error);
    EXPECT_EQ(error->path(), "agent_questions[0].question");
}

TEST(OneDecoder, readsManyDocumentsOneAfterTheOther)
{
    const JsonDecoder decoder;
    const Bytes good(test::compactText(test::fullState()));
    EXPECT_EQ(decoder.decode<QuillmereState>(good), test::fullState());
    EXPECT_THROW(decoder.decode<QuillmereState>(Bytes("{")), DecodingError);
    EXPECT_EQ(decoder.decode<QuillmereState>(good), test::fullState());
    EXPECT_EQ(decoder.decode<WorkflowState>(Bytes("\"idle\"")), WorkflowState::idle);
}

}  // namespace
}  // namespace quillmere
