// Colour is printed to a terminal only.
#include "program_testing.hpp"

namespace quillmere::test {
namespace {

constexpr const char* red = "\x1b[1;31m";

/// The output of status during a focus session.
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
    // As on a usual terminal.
    const EnvironmentVariable noColour{"NO_COLOR", std::nullopt};
    const EnvironmentVariable terminal{"TERM", "xterm-256color"};
};

TEST_F(Colour, isPrintedToATerminal)
{
    const std::string status = statusOn(true);
    EXPECT_TRUE(status.starts_with(std::string(red) + "Focus\x1b[0m  Session 1 of 3\n25:00  [")) << status;
    EXPECT_NE(status.find("\n  \x1b[2mFirst\x1b[0m      First action 1\n"), std::string::npos) << status;
    EXPECT_TRUE(status.ends_with("\n\x1b[2mNext: pause, end, change, extend, end --at, away\x1b[0m\n"))
        << status;
}

TEST_F(Colour, isPrintedToNothingElse) { EXPECT_EQ(statusOn(false).find('\x1b'), std::string::npos); }

TEST_F(Colour, isNotPrintedInJson) { EXPECT_EQ(statusOn(true, {"--json"}).find('\x1b'), std::string::npos); }

}  // namespace
}  // namespace quillmere::test
