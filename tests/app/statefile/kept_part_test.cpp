#include "statefile/present.hpp"

#include "base/refusal.hpp"
#include "random_files.hpp"
#include "support/sample_states.hpp"
#include "support/temporary_directory.hpp"
#include "workspace/screening.hpp"

#include <quillmere/engine/workflow_engine.hpp>
#include <quillmere/store/state_store.hpp>

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <system_error>

namespace quillmere::test {
namespace {

using base::Reach;
using statefile::Changeable;

class KeptPart : public testing::Test {
protected:
    std::optional<Changeable> read(const std::string& text, Reach reach = Reach::present)
    {
        writeText(file(), text);
        return statefile::readChangeable(file(), reach, moment);
    }

    /// The file after a change of the present.
    template <class Operation>
    std::string changed(const std::string& text, const Operation& operation)
    {
        std::optional<Changeable> changeable = read(text);
        if (!changeable) {
            return "not changeable";
        }
        operation(changeable->state);
        changeable->kept.save(changeable->state, file(), StateStore::renameReplacing);
        return textOf(file());
    }

    std::filesystem::path file() const { return directory_.path() / "state.json"; }
    const TemporaryDirectory& directory() const { return directory_; }

private:
    TemporaryDirectory directory_;
};

using Operation = void (*)(QuillmereState& state);

constexpr auto operations = std::to_array<Operation>({
    [](QuillmereState&) {},
    [](QuillmereState& state) { state.updatedAt = moment + 60; },
    [](QuillmereState& state) {
        WorkflowEngine().addQuestion(state, "Which one?", moment);
        state.agentQuestions.back().id = identifier(77);
    },
    [](QuillmereState& state) {
        for (AgentQuestion& question : state.agentQuestions) {
            question.answer = "This one";
            question.answeredAt = moment;
        }
    },
    [](QuillmereState& state) {
        state.blockHistory.insert(state.blockHistory.begin(), sampleBlock(88));
        state.blockHistory.insert(state.blockHistory.begin(), blockInWork(89, 2));
    },
    [](QuillmereState& state) {
        if (!state.blockHistory.empty()) {
            state.blockHistory.front().contextNotes = "changed";
        }
    },
});

/// On all of a state what an operation does to its present: closed questions of long ago stay as they are.
QuillmereState wholeAfter(QuillmereState state, Operation operation)
{
    const QuillmereState before = state;
    operation(state);
    for (std::size_t index = 0; index < before.agentQuestions.size(); ++index) {
        const AgentQuestion& question = before.agentQuestions[index];
        if (!base::isWithinReach(question, moment)) {
            state.agentQuestions[index] = question;
        }
    }
    return state;
}

TEST_F(KeptPart, givesTheFileThatSavingEverythingGives)
{
    std::mt19937 random(3);
    for (int round = 0; round < 300; ++round) {
        const QuillmereState state = randomState(random, moment);
        const Operation operation = operations[random() % operations.size()];
        ASSERT_EQ(changed(textOf(state), operation), textOf(wholeAfter(state, operation))) << round;
    }
}

TEST_F(KeptPart, isCopiedWhateverItsLength)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(40, moment);
    state.blockHistory[20].contextNotes = std::string(1 << 19, '\n');
    state.agentQuestions.front().question = std::string(1 << 19, 'q');
    state.agentQuestions.front().createdAt = moment - 1e6;
    EXPECT_EQ(changed(textOf(state), operations[1]), textOf(wholeAfter(state, operations[1])));
}

bool isUsable(const QuillmereState& state)
{
    try {
        workspace::requireUsable(state);
        return true;
    } catch (const base::Refusal&) {
        return false;
    }
}

/// The file is read in pieces, and a piece may end anywhere.
TEST_F(KeptPart, isReadWhereverAPieceEnds)
{
    constexpr std::size_t pieceSize = 1 << 17;
    constexpr std::size_t stride = 3;
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(20, moment);
    std::string& notes = state.blockHistory[9].contextNotes;
    notes.clear();
    state.blockHistory[10].contextNotes = "\"\\ \x01 \u00FC";
    state.blockHistory[10].outcomes.clear();
    state.blockHistory[11].sessions = blockInWork(11, 2).sessions;
    state.blockHistory[11].whyValue = "of the block after it";
    const std::string text = textOf(state);
    const std::size_t end = text.find(state.blockHistory[11].whyValue);
    const std::size_t begin = text.rfind("\n    },", text.rfind("\n    },", end) - 1);
    for (std::size_t place = begin; place < end; place += stride) {
        notes.assign(pieceSize - place, 'n');
        ASSERT_TRUE(read(textOf(state))) << text.substr(place, 40);
    }
}

TEST_F(KeptPart, isThereOnlyWhereSavingEverythingGivesTheSame)
{
    std::mt19937 random(4);
    int changeable = 0;
    for (int round = 0; round < 700; ++round) {
        std::string text = textOf(randomState(random, moment));
        for (int changes = 0; changes <= round % 3; ++changes) {
            text = changedByHand(text, random);
        }
        const std::optional<Changeable> read = this->read(text);
        if (read) {
            ASSERT_NO_THROW(StateStore::decoder().decode<QuillmereState>(Bytes(text))) << round;
        }
        const std::optional<QuillmereState> whole = read ? stateOf(text) : std::nullopt;
        if (whole) {
            ++changeable;
            ASSERT_EQ(read->state, presentOf(*whole, Reach::present, moment)) << round;
            ASSERT_EQ(isUsable(read->state), isUsable(*whole)) << round;
            read->kept.save(read->state, file(), StateStore::renameReplacing);
            ASSERT_EQ(textOf(file()), textOf(*whole)) << round;
        }
    }
    EXPECT_GT(changeable, 50);
}

/// A history whose last block is beyond reach, with another text in it.
std::string textWith(const std::string& old, const std::string& replacement)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(20, moment);
    state.blockHistory.back().contextNotes = "old notes";
    std::string text = textOf(state);
    const std::size_t place = text.rfind(old, text.find("\n  ],\n  \"break_e"));
    return text.replace(place, old.size(), replacement);
}

TEST_F(KeptPart, isAbsentWithAnEarlierValueInAnotherSpelling)
{
    EXPECT_TRUE(read(textWith("old notes", "\\u0001\\b\\\\\\\"\\n\u00FC\U0001F600")));
    for (const char* const notes : {"\\u0041", "\\u001F", "\\u0008", "\\u000a", "\\/", "\x01", "\xC3",
                                    "\xED\xA0\x80", "\\q", "\x7F\xFF"}) {
        EXPECT_FALSE(read(textWith("old notes", notes))) << notes;
    }
    EXPECT_TRUE(read(textWith("\"focus_duration_seconds\" : 1500", "\"focus_duration_seconds\" : 1e+05")));
    for (const char* const number :
         {"1500.0", "1.5e3", "01500", "+1500", "100000", "1500 ", "true", "null", "\"1500\""}) {
        EXPECT_FALSE(read(textWith("\"focus_duration_seconds\" : 1500",
                                   std::string("\"focus_duration_seconds\" : ") + number)))
            << number;
    }
    for (const char* const count : {"3.0", "03", "-0", "3e0", "9223372036854775808"}) {
        EXPECT_FALSE(read(textWith("\"cycle_count\" : 3", std::string("\"cycle_count\" : ") + count)))
            << count;
    }
    EXPECT_TRUE(read(textWith("2026-11-15T13:00:00Z", "2024-02-29T23:59:59Z")));
    for (const char* const instant :
         {"2026-02-29T13:00:00Z", "2026-11-31T13:00:00Z", "2026-13-15T13:00:00Z", "2026-11-15T24:00:00Z",
          "2026-11-15T13:60:00Z", "2026-11-15t13:00:00Z", "2026-11-00T13:00:00Z", "2026-00-15T13:00:00Z",
          "2026-11-15T13:00:60Z"}) {
        EXPECT_FALSE(read(textWith("2026-11-15T13:00:00Z", instant))) << instant;
    }
    EXPECT_FALSE(read(textWith("9F1C2A4E", "9f1c2a4e")));
    EXPECT_FALSE(read(textWith("9F1C2A4E", "9G1C2A4E")));
    EXPECT_FALSE(read(textWith("9F1C2A4E-0B7D", "9F1C2A4E0-B7D")));
    EXPECT_FALSE(read(textWith("\"hazards\"", "\"hazardz\"")));
    EXPECT_FALSE(read(textWith("\"outcomes\" : [", "\"outcomes\" :  [")));
}

TEST_F(KeptPart, isAbsentWithAnEarlierNumberOutOfBounds)
{
    for (const char* const number : {"0", "0.5", "-1500", "1e+300", "31622401"}) {
        EXPECT_FALSE(read(textWith("1500", number))) << number;
    }
    EXPECT_FALSE(read(textWith("\"cycle_count\" : 3", "\"cycle_count\" : 1001")));
}

TEST_F(KeptPart, isNotSavedOnceSomebodyElseHasWrittenToTheFile)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(20, moment);
    for (const bool isCut : {false, true}) {
        const std::optional<Changeable> changeable = read(textOf(state));
        ASSERT_TRUE(changeable);
        if (isCut) {
            std::filesystem::resize_file(file(), 1000);
        } else {
            std::ofstream(file(), std::ios::app) << "\n";
        }
        const std::string present = textOf(file());
        EXPECT_THROW(changeable->kept.save(changeable->state, file(), StateStore::renameReplacing),
                     std::system_error);
        EXPECT_EQ(textOf(file()), present);
        EXPECT_EQ(directory().names(), std::vector<std::string>{"state.json"});
    }
}

TEST_F(KeptPart, endsTheProgramWhenAnEarlierRecordIsMissing)
{
    QuillmereState state = fullState();
    state.blockHistory = finishedDaily(20, moment);
    std::optional<Changeable> changeable = read(textOf(state));
    ASSERT_TRUE(changeable);
    changeable->state.blockHistory.pop_back();
    EXPECT_DEATH(changeable->kept.save(changeable->state, file(), StateStore::renameReplacing), "the years");
}

}  // namespace
}  // namespace quillmere::test
