// The real program on a terminal.
#include "base/text/terminal_background.hpp"
#include "real_program.hpp"
#include "terminal_window.hpp"

namespace quillmere::test {
namespace {

class Terminal : public testing::Test {
protected:
    Person person;
    // As on a usual terminal.
    const EnvironmentVariable noColour{"NO_COLOR", std::nullopt};
    const EnvironmentVariable terminal{"TERM", "xterm"};

    ProcessEnding types(const Words& words, const std::string& typed = "") const
    {
        Words all = {"--directory", person.directory().string()};
        all.insert(all.end(), words.begin(), words.end());
        return runOnTerminal(all, typed);
    }
};

TEST_F(Terminal, takesAnswersThatAreTypedAhead)
{
    const ProcessEnding ending =
        types({"plan"},
              "Chapter one\nChapter two\n\nA deadline\nRead aloud\nMail\n2000 words\nBlue folder\n\n\n\n\n");
    EXPECT_EQ(ending.code, 0);
    EXPECT_NE(ending.out.find("What should come out of it? "), std::string::npos);
    EXPECT_NE(ending.out.find("When does it begin? (14:30, +1h) [now] "), std::string::npos);
    EXPECT_NE(ending.out.find("The block has begun.\n"), std::string::npos);
    const QuillmereState state = person.state();
    ASSERT_TRUE(state.currentBlock);
    ASSERT_EQ(state.currentBlock->outcomes.size(), 2u);
    EXPECT_EQ(state.currentBlock->outcomes[1].title, "Chapter two");
    EXPECT_EQ(state.currentBlock->contextNotes, "Blue folder");
}

TEST_F(Terminal, seesColour)
{
    EXPECT_NE(types({"status"}).out.find("\x1b[1mIdle\x1b[0m"), std::string::npos);
    EXPECT_EQ(types({"status", "--json"}).out.find('\x1b'), std::string::npos);
}

TEST_F(Terminal, givesTheReportColoursForItsBackground)
{
    person.has(fullState());
    for (const auto& [background, completed] :
         {std::pair{"#faf9f6", "38;2;168;122;28"}, std::pair{"#171614", "38;2;227;189;98"}}) {
        const TerminalWindow window(person, {{"COLORTERM", "truecolor"}, {"PAGER", "cat"}});
        window.paint(background);
        window.runs("clear; $Q report; stty -a | tr ' ' '\\n' | grep -cx echo | sed 's/$/ found/'");
        EXPECT_TRUE(window.shows("morale 5"));
        EXPECT_NE(window.screen(true).find(completed), std::string::npos) << window.screen(true);
        EXPECT_TRUE(window.shows("1 found")) << "the terminal shows again what is typed";
    }
}

TEST_F(Terminal, isAskedNothingWhenSomethingIsTypedAhead)
{
    const EnvironmentVariable pager("PAGER", "cat");
    const EnvironmentVariable more("COLORTERM", "truecolor");
    person.has(fullState());
    const ProcessEnding ending = types({"report"}, "ls\n");
    EXPECT_EQ(ending.code, 0);
    EXPECT_EQ(ending.out.find(base::askForBackground), std::string::npos);
    EXPECT_NE(ending.out.find("\x1b[1;35mLook back\x1b[0m"), std::string::npos) << ending.out;
}

}  // namespace
}  // namespace quillmere::test
