// The colours of the screen on light and dark terminals.
#include "base/text/terminal_background.hpp"

#include "program_testing.hpp"
#include "real_program.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

/// All that the program writes to a terminal on which this was typed before it started.
std::string shownAfter(const std::string& typed)
{
    const Person person;
    person.has(stateIn(WorkflowState::breaking));
    const Channel terminal = Channel::terminal();
    ProcessOptions options = realProgram({"--directory", person.directory().string()},
                                         {.in = terminal, .out = terminal, .err = terminal});
    options.environment = {{"TERM", "xterm-256color"},
                           {"LC_ALL", "C.UTF-8"},
                           {"PATH", "/usr/bin:/bin"},
                           {"XDG_STATE_HOME", person.stateHome().string()}};
    options.inheritsEnvironment = false;
    options.typed = typed;
    Process program(options);
    const std::string shown = program.rest();
    EXPECT_EQ(program.wait().code, 0);
    return shown;
}

bool has(const std::string& text, const std::string& part) { return text.find(part) != std::string::npos; }

TEST(BackgroundOfATerminal, isTakenFromItsAnswerAndNotTyped)
{
    const std::string shown = shownAfter("\x1b]11;rgb:ffff/ffff/ffff\x1b\\q");
    EXPECT_TRUE(has(shown, base::askForBackground.data()));
    EXPECT_TRUE(has(shown, "\x1b[38;5;23m")) << "a break on light";
    EXPECT_FALSE(has(shown, "\x1b[38;5;72m")) << "a break on dark";
    EXPECT_FALSE(has(shown, "Nothing is on this key"));
}

TEST(BackgroundOfATerminal, isDarkWithoutAnAnswer)
{
    const std::string shown = shownAfter("q");
    EXPECT_TRUE(has(shown, "\x1b[38;5;72m"));
    EXPECT_FALSE(has(shown, "\x1b[38;5;23m"));
}

}  // namespace
}  // namespace quillmere::test
