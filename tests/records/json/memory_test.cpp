// Reading and writing when allocations fail.
#include <quillmere/records/json/json_decoder.hpp>
#include <quillmere/records/json/json_encoder.hpp>

#include <gtest/gtest.h>

#include "records/coding_helpers.hpp"
#include "records/complete_records.hpp"
#include "support/failing_allocations.hpp"
#include "support/sample_states.hpp"

namespace quillmere {
namespace {

/// Needs every kind of allocation: long texts, escapes, keys to convert.
QuillmereState roomyState()
{
    QuillmereState state = test::completeState();
    state.agentQuestions[0].question = std::string(2000, 'x') + "\n";
    state.currentBlock->contextNotes = std::string(3000, '\x01');
    return state;
}

/// The results while one allocation after another failed. They are counted first and compared at the end,
/// because a failing comparison allocates as well.
struct Outcomes {
    std::size_t failures = 0;
    std::size_t silent = 0;   ///< nothing was thrown: a second allocation succeeded
    std::size_t leaking = 0;  ///< more memory was in use than before
};

template <class Attempt>
Outcomes failEveryAllocation(Attempt attempt)
{
    Outcomes outcomes;
    attempt();  // performs the allocations that happen once
    const std::size_t inUse = test::blocksInUse();
    outcomes.failures = test::failEveryAllocation(attempt, [&](bool threw) {
        outcomes.silent += threw ? 0 : 1;
        outcomes.leaking += test::blocksInUse() == inUse ? 0 : 1;
    });
    return outcomes;
}

TEST(Decoding, throwsBadAllocOrSucceedsWithoutALeakForEveryAllocationThatFails)
{
    std::string text = test::prettyText(roomyState());
    text.replace(text.find("\"agent_questions\""), 17, "\"agentQuestions\"");
    text.insert(1, R"("zzz":[{"\u0061":"\n"}],)");
    const Bytes bytes(text);
    const QuillmereState expected = roomyState();
    std::size_t wrong = 0;
    const Outcomes outcomes = failEveryAllocation(
        [&] { wrong += JsonDecoder().decode<QuillmereState>(bytes) == expected ? 0 : 1; });
    EXPECT_EQ(wrong, 0U);
    EXPECT_EQ(outcomes.leaking, 0U);
    EXPECT_GT(outcomes.failures, 30U);
    EXPECT_LE(outcomes.silent, 1U) << "the parser asks for one piece of memory twice";
    EXPECT_EQ(bytes.view(), text);
}

TEST(Decoding, throwsBadAllocAlsoWhileItDescribesAnError)
{
    std::string text = test::prettyText(roomyState());
    text.replace(text.rfind("\"Half\""), 6, "\"half\"");
    const Bytes bytes(text);
    std::size_t errors = 0;
    const Outcomes outcomes = failEveryAllocation([&] {
        try {
            JsonDecoder().decode<QuillmereState>(bytes);
        } catch (const DecodingError& error) {
            errors += error.expected() == R"(one of "Yes", "Half", "No")" ? 1 : 0;
        }
    });
    EXPECT_EQ(outcomes.leaking, 0U);
    EXPECT_GT(outcomes.failures, 30U);
    EXPECT_LE(outcomes.silent, 1U);
    EXPECT_EQ(errors, outcomes.silent + 2) << "once before and once after all the failures";
}

TEST(Encoding, throwsBadAllocWithoutALeakForEveryAllocationThatFails)
{
    const QuillmereState state = roomyState();
    for (const JsonLayout layout : {JsonLayout::pretty, JsonLayout::compact}) {
        const Outcomes outcomes = failEveryAllocation([&] { JsonEncoder(layout).encode(state); });
        EXPECT_GE(outcomes.failures, 1U);
        EXPECT_EQ(outcomes.silent, 0U);
        EXPECT_EQ(outcomes.leaking, 0U);
    }
    EXPECT_EQ(state, roomyState());
}

TEST(Decoding, leavesHardlyMoreBlocksInUseThanACopyOfItsResult)
{
    const QuillmereState state = test::fullState();
    const Bytes bytes = JsonEncoder(JsonLayout::pretty).encode(state);
    JsonDecoder().decode<QuillmereState>(bytes);  // performs the allocations that happen once
    const std::size_t atFirst = test::blocksInUse();
    const QuillmereState copy = state;
    const std::size_t withCopy = test::blocksInUse();
    const auto read = JsonDecoder().decode<QuillmereState>(bytes);
    const std::size_t withBoth = test::blocksInUse();
    EXPECT_EQ(read, copy);
    EXPECT_LE(static_cast<double>(withBoth - withCopy), 1.07 * static_cast<double>(withCopy - atFirst));
}

}  // namespace
}  // namespace quillmere
