// The texts that are accepted as questions.
#include "agent/question_text.hpp"

#include "agent/attempt.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using agent::askable;
using agent::ToolRefusal;

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
    {"\u00a0\u3000\u2028äöü\u00a0漢字 🙂\u2028\u0085\u1680", "äöü\u00a0漢字 🙂"},
    // A character that changes how others are shown is no space: it belongs to the question.
    {"\u200fשלום\u200f", "\u200fשלום\u200f"},
    {"🏳\ufe0f\u200d🌈", "🏳\ufe0f\u200d🌈"},
    {"n\u0303?", "n\u0303?"},
    {repeated("a", 2000), repeated("a", 2000)},
    {repeated("🙂", 2000), repeated("🙂", 2000)},
    {"\n" + repeated("é", 2000) + " ", repeated("é", 2000)},
};

TEST(Askable, removesOnlySurroundingWhiteSpace)
{
    for (const auto& [given, kept] : goodQuestions) {
        EXPECT_EQ(askable(given), kept);
    }
}

const std::string badQuestions[] = {
    "",
    " ",
    "\n\t\r\v\f ",
    std::string("a\0b", 3),
    "a\x1b[2J",
    "a\rb",
    "\x07",
    "a\x7f",
    "a\u0080",
    "a\u009bb",
    repeated("a", 2001),
    repeated("🙂", 2001),
    // These have no visible character.
    "\u00a0",
    "\u3000\u2003",
    "\u2028",
    "\u200b",
    "\u200b \u200b",
    "\ufeff",
    "\u00ad",
    "\u200d\u200c",
    "\u202e\u2066",
    "\u3164",
    "\u115f\u1160",
    "\ufe0f",
    "\u0301",
    "\U000e0041\U000e007f",
};

TEST(Askable, refusesEmptyLongAndControllingTexts)
{
    for (const std::string& question : badQuestions) {
        EXPECT_THROW(askable(question), ToolRefusal) << question;
    }
}

TEST(Askable, acceptsTheFirstCharacterAfterC1) { EXPECT_EQ(askable("a\u00a0b"), "a\u00a0b"); }

}  // namespace
}  // namespace quillmere::test
