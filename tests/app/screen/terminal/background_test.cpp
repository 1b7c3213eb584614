// The answers of terminals about their background.
#include "screen/terminal/background.hpp"

#include "program_testing.hpp"
#include "real_program.hpp"

#include <gtest/gtest.h>

namespace quillmere::test {
namespace {

using base::Background;
using screen::backgroundFrom;

TEST(Background, isLightOrDarkByTheAnswer)
{
    EXPECT_EQ(backgroundFrom("11;rgb:ffff/ffff/ffff"), Background::light);
    EXPECT_EQ(backgroundFrom("11;rgb:fa/f9/f6"), Background::light);
    EXPECT_EQ(backgroundFrom("11;rgba:fdfd/f6f6/e3e3/ffff"), Background::light);
    EXPECT_EQ(backgroundFrom("11;rgb:1717/1616/1414"), Background::dark);
    EXPECT_EQ(backgroundFrom("11;rgb:0/0/0"), Background::dark);
    EXPECT_EQ(backgroundFrom("11;rgb:0000/2b2b/3636"), Background::dark);
}

TEST(Background, isUnknownWithoutAColour)
{
    for (const char* const answer :
         {"", "11;", "11;rgb:", "11;rgb:ff/ff", "11;rgb:ff//ff", "11;rgb:ffffff/0/0", "11;cmyk:0/0/0",
          "10;rgb:ff/ff/ff", "11;rgb:gg/ff/ff"}) {
        EXPECT_EQ(backgroundFrom(answer), std::nullopt) << answer;
    }
}

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
    EXPECT_TRUE(has(shown, screen::askForBackground.data()));
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
