// Writing to a sink in pieces.
#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <vector>

#include "records/coding_helpers.hpp"
#include "support/sample_states.hpp"

namespace quillmere::test {
namespace {

constexpr JsonLayout layouts[] = {JsonLayout::pretty, JsonLayout::compact};

/// Larger than one piece of any likely size.
constexpr std::size_t manyPieces = 5'000'000;

QuillmereState stateWithQuestions(std::size_t count, const std::string& text)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.agentQuestions.assign(count, {.id = identifier(1),
                                        .question = text,
                                        .createdAt = moment,
                                        .answer = std::nullopt,
                                        .answeredAt = std::nullopt});
    return state;
}

std::vector<std::string> piecesOf(const QuillmereState& state, JsonLayout layout)
{
    std::vector<std::string> pieces;
    JsonEncoder(layout).source(state)([&](std::string_view piece) { pieces.emplace_back(piece); });
    return pieces;
}

std::string joined(const std::vector<std::string>& pieces)
{
    std::string text;
    for (const std::string& piece : pieces) {
        text += piece;
    }
    return text;
}

void expectSameTextInPieces(const QuillmereState& state)
{
    for (const JsonLayout layout : layouts) {
        const Bytes whole = JsonEncoder(layout).encode(state);
        EXPECT_TRUE(joined(piecesOf(state, layout)) == whole.view());
    }
}

TEST(Pieces, areTheWholeTextWhenJoined)
{
    expectSameTextInPieces(QuillmereState::initial(moment));
    expectSameTextInPieces(stateIn(WorkflowState::focusing));
    expectSameTextInPieces(stateWithQuestions(manyPieces / 200, "a short text with \"escapes\"\n"));
}

TEST(Pieces, ofALongTextAreSeveral)
{
    const QuillmereState state = stateWithQuestions(manyPieces / 200, "a short text");
    for (const JsonLayout layout : layouts) {
        EXPECT_GT(piecesOf(state, layout).size(), 2U);
    }
}

TEST(Pieces, areCutAtAnyPlaceWithoutLoss)
{
    // Each state is one byte longer, so the pieces end at every position of a member and of a record.
    for (std::size_t length = 100; length < 400; ++length) {
        SCOPED_TRACE(length);
        expectSameTextInPieces(stateWithQuestions(700, std::string(length, 'a')));
    }
}

TEST(Pieces, holdSingleTextsThatAreLongerThanAll)
{
    for (const char* part : {"a", "\"", "\x01", "\xC3\xA9", "\xFF"}) {
        SCOPED_TRACE(part);
        std::string text;
        while (text.size() < manyPieces / 5) {
            text += part;
        }
        expectSameTextInPieces(stateWithQuestions(3, text));
    }
}

TEST(Pieces, comeAgainFromTheSameSource)
{
    const QuillmereState state = stateIn(WorkflowState::breaking);
    const ByteSource source = JsonEncoder(JsonLayout::pretty).source(state);
    std::string text;
    const auto append = [&](std::string_view piece) { text += piece; };
    source(append);
    const std::string once = text;
    source(append);
    EXPECT_EQ(text, once + once);
}

TEST(Pieces, areNotMadeOfAValueWithoutAJsonForm)
{
    QuillmereState state = stateIn(WorkflowState::focusing);
    state.breakExtensionSeconds = std::numeric_limits<double>::infinity();
    for (const JsonLayout layout : layouts) {
        EXPECT_THROW(JsonEncoder(layout).source(state), EncodingError);
    }
}

TEST(Pieces, endWithTheExceptionOfTheSink)
{
    const QuillmereState state = stateWithQuestions(manyPieces / 200, "a short text");
    int calls = 0;
    const auto refuseTheSecond = [&](std::string_view) {
        if (++calls == 2) {
            throw std::runtime_error("enough");
        }
    };
    EXPECT_THROW(JsonEncoder(JsonLayout::pretty).source(state)(refuseTheSecond), std::runtime_error);
    EXPECT_EQ(calls, 2);
}

}  // namespace
}  // namespace quillmere::test
