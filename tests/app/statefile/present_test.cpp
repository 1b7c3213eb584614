#include "statefile/present.hpp"

#include "random_files.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"

#include <quillmere/records/json/coding_error.hpp>
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>
#include <sys/stat.h>

namespace quillmere::test {
namespace {

using base::Reach;
using statefile::readPresent;

/// What the present of a state is, computed from all of it.
QuillmereState presentOf(QuillmereState state, Reach reach)
{
    std::erase_if(state.agentQuestions, [](const AgentQuestion& question) { return !question.isOpen(); });
    const std::size_t count = base::blocksWithin(reach, state, moment).size();
    state.blockHistory.erase(state.blockHistory.begin() + static_cast<std::ptrdiff_t>(count),
                             state.blockHistory.end());
    return state;
}

class Present : public testing::Test {
protected:
    std::optional<QuillmereState> read(const std::string& text, Reach reach = Reach::present)
    {
        writeText(file(), text);
        return readPresent(file(), reach, moment);
    }

    std::optional<QuillmereState> read(const QuillmereState& state, Reach reach = Reach::present)
    {
        return read(std::string(StateStore::encoder().encode(state).view()), reach);
    }

    std::filesystem::path file() const { return directory_.path() / "state.json"; }

private:
    TemporaryDirectory directory_;
};

std::vector<Block> finishedDaily(unsigned count)
{
    std::vector<Block> blocks;
    for (unsigned number = 0; number < count; ++number) {
        blocks.push_back(blockInWork(number, 1));
        blocks.back().completedAt = moment - 86'400.0 * number;
    }
    return blocks;
}

TEST_F(Present, isTheStateWithoutClosedQuestionsAndEarlierBlocks)
{
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        const QuillmereState state = randomState(random, moment);
        const Reach reach = round % 2 == 0 ? Reach::present : Reach::prompts;
        ASSERT_EQ(read(state, reach), presentOf(state, reach)) << round;
    }
}

TEST_F(Present, isReadFromFilesOfAnyLength)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40);
    state.blockHistory[2].contextNotes = std::string(1 << 18, 'n');
    for (unsigned number = 0; number < 3000; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = std::string(number, '"'),
                                        .createdAt = moment,
                                        .answer = "Yes",
                                        .answeredAt = moment});
    }
    state.currentBlock->contextNotes = std::string(1 << 18, '\\');
    EXPECT_EQ(read(state), presentOf(state, Reach::present));
}

TEST_F(Present, endsWithTheBlockBeforeWhichNothingIsOfToday)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40);
    EXPECT_EQ(read(state)->blockHistory.size(), 5u);
    EXPECT_EQ(read(state, Reach::prompts)->blockHistory.size(), 30u);
    for (Block& block : state.blockHistory) {
        block.completedAt = moment;
    }
    EXPECT_EQ(read(state)->blockHistory.size(), 40u);
}

TEST_F(Present, doesNotLookAtTheYears)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40);
    state.blockHistory[20].contextNotes = "of an old block";
    std::string text(StateStore::encoder().encode(state).view());
    text[text.find("of an old block")] = '\x01';
    EXPECT_THROW(StateStore::decoder().decode<QuillmereState>(Bytes(text)), DecodingError);
    EXPECT_TRUE(read(text));
}

/// Absent for a text that is no state, and for one whose reviews get new identifiers at each reading.
std::optional<QuillmereState> stateIn(const std::string& text)
{
    try {
        QuillmereState state = StateStore::decoder().decode<QuillmereState>(Bytes(text));
        const bool isOne = state == StateStore::decoder().decode<QuillmereState>(Bytes(text));
        return isOne ? std::optional(std::move(state)) : std::nullopt;
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

TEST_F(Present, isAbsentWhenTheHistoryIsNotTheLastList)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40);
    state.breakStartedAt.reset();
    std::string text(StateStore::encoder().encode(state).view());
    const std::string end = "\n  ],\n  \"break_e";
    text.insert(text.rfind(end) + 5,
                "\n  \"break_started_at\" : \"2026-11-15T15:00:00Z\",\n"
                "  \"list\" : [\n    {\n      \"id\" : 1\n    }\n  ],");
    EXPECT_TRUE(stateIn(text));
    EXPECT_FALSE(read(text));
}

TEST_F(Present, isAbsentWhenTheHistoryStandsTwice)
{
    std::string text(StateStore::encoder().encode(fullState()).view());
    text.insert(text.size() - 2, ",\n  \"block_history\" : []");
    EXPECT_TRUE(stateIn(text)->blockHistory.empty());
    EXPECT_FALSE(read(text));
}

TEST_F(Present, isWhatTheWholeFileSaysWhereverSomebodyHasChangedIt)
{
    std::mt19937 random(2);
    int compared = 0;
    for (int round = 0; round < 2000; ++round) {
        std::string text(StateStore::encoder().encode(randomState(random, moment)).view());
        for (int changes = 0; changes <= round % 3; ++changes) {
            text = changedByHand(text, random);
        }
        const std::optional<QuillmereState> present = read(text);
        const std::optional<QuillmereState> whole = present ? stateIn(text) : std::nullopt;
        if (whole) {
            ++compared;
            ASSERT_EQ(*present, presentOf(*whole, Reach::present)) << round << '\n' << text;
        }
    }
    EXPECT_GT(compared, 200);
}

TEST_F(Present, isAbsentWithoutAFileOfTheKnownForm)
{
    EXPECT_FALSE(readPresent(file(), Reach::present, moment));
    EXPECT_FALSE(readPresent(file().parent_path(), Reach::present, moment));
    ASSERT_EQ(::mkfifo(file().c_str(), 0600), 0);
    EXPECT_FALSE(readPresent(file(), Reach::present, moment));
    std::filesystem::remove(file());
    EXPECT_FALSE(read(std::string()));
    EXPECT_FALSE(read(std::string("{}")));
    EXPECT_FALSE(read(std::string(JsonEncoder(JsonLayout::compact).encode(fullState()).view())));
}

}  // namespace
}  // namespace quillmere::test
