// The real program on a real terminal.
#include <signal.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <regex>

#include "screen/program_elsewhere.hpp"

namespace quillmere::test {
namespace {

class LiveScreen : public ProgramElsewhere {
protected:
    void isFocusing(const std::string& duration = "25m") const
    {
        ASSERT_EQ(elsewhere({"plan", "--outcome", "Chapter", "--focus", duration, "--break", "1s", "--cycles",
                             "2", "--start"}),
                  0);
        ASSERT_EQ(elsewhere({"focus", "--outcome", "Headings", "--energy", "4", "--morale", "3"}), 0);
    }
    /// The process that the shell waits for (proc(5)).
    static pid_t processIn(const TerminalWindow& window)
    {
        const std::string shell = std::to_string(std::stol(window.variable("pane_pid")));
        pid_t found = 0;
        EXPECT_TRUE(eventually([&] {
            std::ifstream children("/proc/" + shell + "/task/" + shell + "/children");
            return static_cast<bool>(children >> found);
        }));
        return found;
    }
};

TEST_F(LiveScreen, takesAPersonThroughAWholeBlock)
{
    const TerminalWindow window(person);
    window.runs("$Q");
    ASSERT_TRUE(window.shows("p plan a block"));
    window.presses("p");
    ASSERT_TRUE(window.shows("^S begin now"));
    window.types("Chapter");
    window.presses("BTab BTab C-u");
    window.types("1");
    window.presses("C-s");
    ASSERT_TRUE(window.shows("^S start focus"));
    window.types("Headings");
    window.presses("C-s");
    ASSERT_TRUE(window.shows("Session 1 of 1"));
    window.presses("Space");
    ASSERT_TRUE(window.shows("paused"));
    window.presses("Space");
    ASSERT_TRUE(window.showsNoMore("paused"));
    window.presses("e");
    ASSERT_TRUE(window.shows("End the session before its time?"));
    window.presses("y");
    ASSERT_TRUE(window.shows("Was it completed?"));
    window.presses("y Tab Tab Tab Tab");
    ASSERT_TRUE(window.shows("What was produced?"));
    window.types("One chapter");
    window.presses("C-s");
    ASSERT_TRUE(window.shows("Finished last"));
    window.presses("q");
    ASSERT_TRUE(window.shows("ready>"));
    const QuillmereState state = person.state();
    EXPECT_EQ(state.blockHistory.at(0).reflection->outputProduced, "One chapter");
    EXPECT_EQ(namesIn(person.stateHome() / "quillmere").size(), 1U);
}

TEST_F(LiveScreen, opensABlockOfTheHistoryAndGoesBack)
{
    QuillmereState state = stateIn(WorkflowState::idle);
    state.blockHistory.push_back(blockInWork(2, 1));
    person.has(state);
    const TerminalWindow window(person);
    window.runs("$Q");
    ASSERT_TRUE(window.shows("h history"));
    window.presses("h");
    ASSERT_TRUE(window.shows("History  1 block"));
    window.presses("Enter");
    ASSERT_TRUE(window.shows("c correct the block"));
    window.presses("Escape");
    EXPECT_TRUE(window.shows("History  1 block"));
}

TEST_F(LiveScreen, opensOnADeepLinkAndCountsDown)
{
    isFocusing("3s");
    const TerminalWindow window(person);
    window.runs("$Q open quillmere://open/focus");
    ASSERT_TRUE(window.shows("Session 1 of 2"));
    EXPECT_TRUE(window.shows("The focus session ended at"));
    EXPECT_TRUE(comesTo(WorkflowState::sessionReview));
    window.presses("y C-s");
    ASSERT_TRUE(window.shows("The break was over at"));
    EXPECT_TRUE(window.shows("end the break"));
    EXPECT_NE(person.state().breakEndNotifiedAt, std::nullopt);
}

TEST_F(LiveScreen, hasTheTimeInTheTitleOfItsWindowAndGivesTheFormerOneBack)
{
    isFocusing();
    const TerminalWindow window(person);
    const auto isTitled = [&](const std::string& pattern) {
        return eventually([&] {
                   return std::regex_match(window.variable("pane_title"), std::regex(pattern + "\n"));
               })
               << window.variable("pane_title");
    };
    window.runs("printf '\\033]2;mine\\033\\\\'");
    ASSERT_TRUE(isTitled("mine"));
    window.runs("$Q ui");
    EXPECT_TRUE(isTitled("2[45]:\\d\\d Focus"));
    window.presses("C-z");
    EXPECT_TRUE(isTitled("mine"));
    window.runs("fg");
    EXPECT_TRUE(isTitled("2[45]:\\d\\d Focus"));
    window.presses("q");
    EXPECT_TRUE(isTitled("mine"));
    window.runs("$Q ui");
    EXPECT_TRUE(isTitled("2[45]:\\d\\d Focus"));
    ::kill(processIn(window), SIGTERM);
    EXPECT_TRUE(isTitled("mine"));
}

TEST_F(LiveScreen, answersQuestionsInFocus)
{
    isFocusing();
    ASSERT_EQ(elsewhere({"ask", "Which build? #{pane_pid} \x1b[2J\u202E \u65E5\u672C"}), 0);
    const TerminalWindow window(person);
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("1 question"));
    window.presses("z");
    EXPECT_TRUE(window.shows("Nothing is on this key now; ? shows the keys."));
    window.presses("a");
    EXPECT_TRUE(window.shows("Which build? #{pane_pid} \uFFFD[2J\uFFFD \u65E5\u672C"));
    window.presses("Enter");
    ASSERT_TRUE(window.shows("^S answer"));
    window.types("The \u65E5\u672C one");
    window.presses("C-s");
    EXPECT_TRUE(window.shows("No question waits"));
    EXPECT_EQ(person.state().agentQuestions.at(0).answer, "The \u65E5\u672C one");
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
}

TEST_F(LiveScreen, showsWhatAnotherProcessDoes)
{
    isFocusing();
    const TerminalWindow window(person);
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("space pause"));
    ASSERT_EQ(elsewhere({"pause"}), 0);
    EXPECT_TRUE(window.shows("space go on"));
}

TEST_F(LiveScreen, keepsAHalfWrittenFormThroughResizingStoppingAndKilling)
{
    ASSERT_EQ(elsewhere({"plan", "--outcome", "Chapter", "--start"}), 0);
    const TerminalWindow window(person);
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("^S start focus"));
    window.types("Half a plan");
    ASSERT_TRUE(window.shows("Half a plan"));
    window.resize(40, 12);
    EXPECT_TRUE(window.shows(" \u25B8 What should this session bring"));
    EXPECT_TRUE(window.shows("Half a plan"));
    window.resize(80, 24);
    EXPECT_TRUE(window.shows("  \u25B8 What should this session bring about?   Half a plan"));
    window.presses("C-z");
    ASSERT_TRUE(window.shows("ready>"));
    EXPECT_TRUE(window.showsNoMore("What should this session bring"));
    window.runs("fg");
    ASSERT_TRUE(window.shows("Half a plan"));
    const pid_t process = processIn(window);
    ASSERT_GT(process, 0);
    ASSERT_EQ(::kill(process, SIGKILL), 0);
    ASSERT_TRUE(window.shows("Killed"));
    // The terminal was not restored, so Enter does not end a line.
    window.types("stty sane; tput reset; $Q ui");
    window.presses("C-j");
    EXPECT_TRUE(window.shows("What you had written is back."));
    EXPECT_TRUE(window.shows("Half a plan"));
}

TEST_F(LiveScreen, takesAPasteAsTextAndNotAsCommands)
{
    isFocusing();
    const TerminalWindow window(person);
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("space pause"));
    window.pastes(" ey q\n ey");
    window.presses("a n");
    ASSERT_TRUE(window.shows("What is to be asked?"));
    window.pastes("First line\nSecond: \u65E5\u672C");
    EXPECT_TRUE(window.shows("Second: \u65E5\u672C"));
    window.presses("C-s");
    ASSERT_TRUE(eventually([&] { return person.state().agentQuestions.size() == 1; }));
    EXPECT_EQ(person.state().agentQuestions[0].question, "First line\nSecond: \u65E5\u672C");
    EXPECT_FALSE(person.state().interruptible());
    EXPECT_EQ(person.state().workflowState, WorkflowState::focusing);
}

TEST_F(LiveScreen, dropsUnknownSequencesAndKeepsCharactersThatArriveInPieces)
{
    ASSERT_EQ(elsewhere({"plan", "--outcome", "Chapter", "--start"}), 0);
    const TerminalWindow window(person, {{"TERM", "screen"}});
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("^S start focus"));
    window.sends("61 c3");
    ASSERT_TRUE(window.shows("bring about?   a"));
    window.sends("a9 62");
    window.sends("1b 5b 31 3b 39 44 63 ff 64");
    EXPECT_TRUE(
        window.shows("bring about?   a\u00E9bc\uFFFD"
                     "d"));
}

/// The modes of the shell's terminal.
std::string settingsOf(const TerminalWindow& window)
{
    // The marks around a paste would be shown as "^[[200~".
    window.pastes("echo past''ed");
    window.presses("Enter");
    EXPECT_TRUE(window.shows("\npasted"));
    EXPECT_EQ(window.screen().find("200~"), std::string::npos);
    const TemporaryDirectory directory;
    const std::string file = (directory.path() / "settings").string();
    window.runs("stty -g >" + file + ".new; mv " + file + ".new " + file);
    EXPECT_TRUE(eventually([&] { return std::filesystem::exists(file); }));
    return textOf(file) + window.variable("cursor_flag") + window.variable("alternate_on") +
           window.variable("keypad_cursor_flag") + window.variable("mouse_any_flag");
}

TEST_F(LiveScreen, restoresTheTerminalAtEveryEnd)
{
    const TerminalWindow window(person);
    const std::string before = settingsOf(window);
    const auto opens = [&] {
        window.runs("clear; $Q ui; echo ended $?");
        EXPECT_TRUE(window.shows("q quit"));
        EXPECT_EQ(window.variable("alternate_on"), "1\n");
        EXPECT_EQ(window.variable("mouse_any_flag"), "1\n");
    };
    opens();
    window.presses("q");
    EXPECT_TRUE(window.shows("ended 0"));
    EXPECT_EQ(settingsOf(window), before);
    opens();
    window.presses("C-c");
    EXPECT_TRUE(window.shows("ended 0"));
    EXPECT_EQ(settingsOf(window), before);
    for (const int signal : {SIGTERM, SIGHUP, SIGQUIT, SIGABRT, SIGSEGV}) {
        opens();
        const pid_t process = processIn(window);
        ASSERT_GT(process, 0);
        ASSERT_EQ(::kill(process, signal), 0);
        EXPECT_TRUE(window.shows("ended " + std::to_string(128 + signal)));
        EXPECT_EQ(settingsOf(window), before) << signal;
    }
}

TEST_F(LiveScreen, drawsWithAsciiOnAPlainTerminal)
{
    ASSERT_EQ(elsewhere({"plan", "--start"}), 0);
    ASSERT_EQ(elsewhere({"focus", "--outcome", "Chapitre \u00E9 \u65E5", "--energy", "4", "--morale", "3"}),
              0);
    const TerminalWindow window(person, {{"LC_ALL", "C"}, {"TERM", "vt100"}});
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("######"));
    EXPECT_TRUE(window.shows("Chapitre ? ??"));
    const std::string screen = window.screen();
    EXPECT_EQ(std::count_if(screen.begin(), screen.end(),
                            [](char character) { return static_cast<unsigned char>(character) >= 0x80; }),
              0);
}

TEST_F(LiveScreen, leavesARowForThePromptWithoutAnAlternateScreen)
{
    const TerminalWindow window(person, {{"LC_ALL", "C"}, {"TERM", "vt100"}});
    window.runs("$Q ui");
    ASSERT_TRUE(window.shows("q quit"));
    window.presses("q");
    EXPECT_TRUE(window.shows("\nready>\n"));
    EXPECT_TRUE(window.showsNoMore("q quit"));
}

TEST_F(LiveScreen, isAsLargeAsTheWindowWhateverTheEnvironmentSays)
{
    ASSERT_EQ(elsewhere({"plan", "--start"}), 0);
    const TerminalWindow window(person, {{"COLUMNS", "40"}, {"LINES", "12"}});
    window.runs("$Q ui");
    EXPECT_TRUE(window.shows("What should this session bring about?   \u00B7"));
}

/// Starts the program on a terminal that nobody reads from.
Process stuckProgram(const Person& person)
{
    const Channel terminal = Channel::terminal();
    ProcessOptions options = realProgram({"--directory", person.directory().string()},
                                         {.in = terminal, .out = terminal, .err = terminal});
    options.environment = {
        {"TERM", "xterm"}, {"LC_ALL", "C.UTF-8"}, {"XDG_STATE_HOME", person.stateHome().string()}};
    options.inheritsEnvironment = false;
    // More than the terminal holds unread.
    options.terminal = {.rows = 300, .columns = 900};
    return Process(options);
}

TEST_F(LiveScreen, canBeEndedWhileTheTerminalDoesNotRead)
{
    QuillmereState state = stateIn(WorkflowState::blockPlanning);
    state.currentBlock = stateWithScheduledBlock().currentBlock;
    for (int number = 0; number < 50'000; ++number) {
        state.currentBlock->contextNotes += " " + std::to_string(number);
    }
    person.has(state);
    for (const int signal : {SIGTERM, SIGHUP}) {
        Process program = stuckProgram(person);
        ASSERT_TRUE(eventually([&] { return program.hasOutput(); }));
        program.send(signal);
        EXPECT_EQ(program.wait().signal, signal);
    }
}

TEST_F(LiveScreen, hasNoColourWhenThePersonWantsNone)
{
    isFocusing();
    const auto coloursOn = [&](const TerminalWindow::Settings& settings) {
        const TerminalWindow window(person, settings);
        window.runs("$Q ui");
        EXPECT_TRUE(window.shows("space pause"));
        // Any colour but the default ones, 39 and 49.
        return std::regex_search(window.screen(true), std::regex("\x1b\\[[0-9;]*(3[0-8]|4[0-8]|9[0-7])[;m]"));
    };
    EXPECT_TRUE(coloursOn({}));
    EXPECT_FALSE(coloursOn({{"NO_COLOR", "1"}}));
}

TEST_F(LiveScreen, refusesToOpenWithoutATerminal)
{
    const TerminalWindow window(person, {{"TERM", "dumb"}});
    window.runs("clear; $Q ui; echo ended $?");
    EXPECT_TRUE(window.shows("This terminal cannot show the live screen"));
    EXPECT_TRUE(window.shows("ended 2"));
    window.runs("$Q");
    EXPECT_TRUE(window.shows("Next: plan"));
    const ProcessEnding ending = runProgram({"--directory", person.directory().string(), "ui"});
    EXPECT_EQ(ending.code, 2);
    EXPECT_EQ(ending.err, "The live screen needs a terminal. quillmere status works without one.\n");
}

TEST_F(LiveScreen, neverOpensForPrograms)
{
    const TerminalWindow window(person);
    window.runs("clear; $Q --json ui; echo ended $?");
    EXPECT_TRUE(window.shows("ended 2"));
    window.runs("clear; $Q --json open quillmere://open/focus; echo told $?");
    EXPECT_TRUE(window.shows("\"screen\": \"focus\""));
    EXPECT_TRUE(window.shows("\ntold 0"));
    window.runs("clear; $Q --json | head -c 30; echo; echo said");
    EXPECT_TRUE(window.shows("\nsaid"));
}

}  // namespace
}  // namespace quillmere::test
