// Which questions an agent may put to the person, and how many.
#include "agent/asking.hpp"

#include "program_testing.hpp"

namespace quillmere::test {
namespace {

using app::agent::askable;
using app::agent::Refusal;
using app::agent::requireRoom;

std::string repeated(const std::string& text, std::size_t count)
{
    std::string all;
    for (std::size_t number = 0; number < count; ++number) {
        all += text;
    }
    return all;
}

const struct {
    std::string given;
    std::string kept;
} goodQuestions[] = {
    {"Why?", "Why?"},
    {"  Why?\r\n", "Why?"},
    {"One\n\tTwo", "One\n\tTwo"},
    {"äöü 漢字 🙂 \u00a0\u2028", "äöü 漢字 🙂 \u00a0\u2028"},
    {repeated("a", 2000), repeated("a", 2000)},
    {repeated("🙂", 2000), repeated("🙂", 2000)},
    {"\n" + repeated("é", 2000) + " ", repeated("é", 2000)},
};

TEST(Askable, keepsTheQuestionWithoutWhiteSpaceAroundIt)
{
    for (const auto& [given, kept] : goodQuestions) {
        EXPECT_EQ(askable(given), kept);
    }
}

const std::string badQuestions[] = {
    "",        " ",        "\n\t\r\v\f ",       std::string("a\0b", 3), "a\x1b[2J", "a\rb", "\x07", "a\x7f",
    "a\u0080", "a\u009bb", repeated("a", 2001), repeated("🙂", 2001),
};

TEST(Askable, refusesWhatNobodyShouldRead)
{
    for (const std::string& question : badQuestions) {
        EXPECT_THROW(askable(question), Refusal) << question;
    }
}

TEST(Askable, takesTheFirstCharacterBeyondC1) { EXPECT_EQ(askable("a\u00a0b"), "a\u00a0b"); }

/// A state in which `count` questions were asked at `askedAt`.
QuillmereState stateWithQuestions(unsigned count, Instant askedAt, bool answered)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    for (unsigned number = 0; number < count; ++number) {
        state.agentQuestions.push_back({.id = identifier(number),
                                        .question = "?",
                                        .createdAt = askedAt,
                                        .answer = answered ? std::optional<std::string>("!") : std::nullopt,
                                        .answeredAt = answered ? std::optional(askedAt) : std::nullopt});
    }
    return state;
}

TEST(Room, isForTenQuestionsAMinute)
{
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(9, moment, true), moment));
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment, true), moment), Refusal);
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment, true), moment + 60), Refusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(10, moment, true), moment + 61));
}

TEST(Room, isNotMadeByAClockThatWasSetBack)
{
    EXPECT_THROW(requireRoom(stateWithQuestions(10, moment + 30, true), moment), Refusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(10, moment + 3600, true), moment));
}

TEST(Room, isForFiftyOpenQuestions)
{
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(49, moment - 3600, false), moment));
    EXPECT_THROW(requireRoom(stateWithQuestions(50, moment - 3600, false), moment), Refusal);
    EXPECT_NO_THROW(requireRoom(stateWithQuestions(500, moment - 3600, true), moment));
}

}  // namespace
}  // namespace quillmere::test
