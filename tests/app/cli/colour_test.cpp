// Colour: where it is wanted, and nowhere else.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr const char* red = "\x1b[1;31m";

/// What somebody in focus sees of it.
std::string statusOn(bool terminal, const Words& more = {})
{
    Person person;
    person.has(stateIn(WorkflowState::focusing));
    person.seesColour = terminal;
    Words words = {"status"};
    words.insert(words.end(), more.begin(), more.end());
    return person.types(words).out;
}

class Colour : public testing::Test {
protected:
    // As on a usual terminal; tests say what differs.
    const EnvironmentVariable noColour{"NO_COLOR", std::nullopt};
    const EnvironmentVariable terminal{"TERM", "xterm-256color"};
};

TEST_F(Colour, isForATerminal)
{
    EXPECT_EQ(statusOn(true), std::string(red) +
                                  "Focus\x1b[0m  Session 1 of 3\n25:00  [........................]\n"
                                  "Outcome: Outcome of session 1\nFirst action: First action 1\n"
                                  "\x1b[2mNext: pause, end\x1b[0m\n");
}

TEST_F(Colour, isForNothingElse) { EXPECT_EQ(statusOn(false).find('\x1b'), std::string::npos); }

TEST_F(Colour, isNotForPrograms) { EXPECT_EQ(statusOn(true, {"--json"}).find('\x1b'), std::string::npos); }

TEST_F(Colour, isNotAgainstThePersonsWill)
{
    for (const char* value : {"1", "0", "no"}) {
        const EnvironmentVariable unwanted("NO_COLOR", value);
        EXPECT_EQ(statusOn(true).find('\x1b'), std::string::npos);
    }
    const EnvironmentVariable empty("NO_COLOR", "");
    EXPECT_NE(statusOn(true).find(red), std::string::npos);
}

TEST_F(Colour, isNotForATerminalThatHasNone)
{
    for (const auto& value : {std::optional<std::string>("dumb"), std::optional<std::string>()}) {
        const EnvironmentVariable plain("TERM", value);
        EXPECT_EQ(statusOn(true).find('\x1b'), std::string::npos);
    }
}

}  // namespace
}  // namespace quillmere::test
