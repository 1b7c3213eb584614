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

class Present : public testing::Test {
protected:
    std::optional<QuillmereState> read(const std::string& text, Reach reach = Reach::present)
    {
        writeText(file(), text);
        return readPresent(file(), reach, moment);
    }

    std::optional<QuillmereState> read(const QuillmereState& state, Reach reach = Reach::present)
    {
        return read(textOf(state), reach);
    }

    std::filesystem::path file() const { return directory_.path() / "state.json"; }

private:
    TemporaryDirectory directory_;
};

TEST_F(Present, isTheStateWithoutClosedQuestionsAndEarlierBlocks)
{
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        const QuillmereState state = randomState(random, moment);
        const Reach reach = round % 2 == 0 ? Reach::present : Reach::prompts;
        ASSERT_EQ(read(state, reach), presentOf(state, reach, moment)) << round;
    }
}

TEST_F(Present, isReadFromFilesOfAnyLength)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40, moment);
    state.blockHistory[2].contextNotes = std::string(1 << 18, 'n');
    for (unsigned number = 0; number < 3000; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = std::string(number, '"'),
                                        .createdAt = moment,
                                        .answer = "Yes",
                                        .answeredAt = moment});
    }
    state.currentBlock->contextNotes = std::string(1 << 18, '\\');
    EXPECT_EQ(read(state), presentOf(state, Reach::present, moment));
}

TEST_F(Present, endsWithTheBlockBeforeWhichNothingIsOfToday)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40, moment);
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
    state.blockHistory = finishedDaily(40, moment);
    state.blockHistory[20].contextNotes = "of an old block";
    std::string text = textOf(state);
    text[text.find("of an old block")] = '\x01';
    EXPECT_THROW(StateStore::decoder().decode<QuillmereState>(Bytes(text)), DecodingError);
    EXPECT_TRUE(read(text));
}

TEST_F(Present, isAbsentWhenTheHistoryIsNotTheLastList)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40, moment);
    state.breakStartedAt.reset();
    std::string text = textOf(state);
    const std::string end = "\n  ],\n  \"break_e";
    text.insert(text.rfind(end) + 5,
                "\n  \"break_started_at\" : \"2026-11-15T15:00:00Z\",\n"
                "  \"list\" : [\n    {\n      \"id\" : 1\n    }\n  ],");
    EXPECT_TRUE(stateOf(text));
    EXPECT_FALSE(read(text));
}

TEST_F(Present, isAbsentWhenTheHistoryStandsTwice)
{
    std::string text = textOf(fullState());
    text.insert(text.size() - 2, ",\n  \"block_history\" : []");
    EXPECT_TRUE(stateOf(text)->blockHistory.empty());
    EXPECT_FALSE(read(text));
}

TEST_F(Present, isWhatTheWholeFileSaysWhereverSomebodyHasChangedIt)
{
    std::mt19937 random(2);
    int compared = 0;
    for (int round = 0; round < 700; ++round) {
        std::string text = textOf(randomState(random, moment));
        for (int changes = 0; changes <= round % 3; ++changes) {
            text = changedByHand(text, random);
        }
        const std::optional<QuillmereState> present = read(text);
        const std::optional<QuillmereState> whole = present ? stateOf(text) : std::nullopt;
        if (whole) {
            ++compared;
            ASSERT_EQ(*present, presentOf(*whole, Reach::present, moment)) << round << '\n' << text;
        }
    }
    EXPECT_GT(compared, 100);
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
