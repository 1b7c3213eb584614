#include "screen/terminal_window.hpp"

#include <array>
#include <chrono>
#include <cstdio>
#include <thread>

namespace quillmere::test {
namespace {

using namespace std::chrono_literals;

constexpr double patience = 20;

/// What a command of the shell prints.
std::string outputOf(const std::string& line)
{
    std::string output;
    FILE* const pipe = ::popen(line.c_str(), "r");
    EXPECT_TRUE(pipe) << line;
    std::array<char, 4096> piece;
    for (std::size_t count = 0; (count = std::fread(piece.data(), 1, piece.size(), pipe)) > 0;) {
        output.append(piece.data(), count);
    }
    ::pclose(pipe);
    return output;
}

}  // namespace

std::string shellWord(const std::string& text)
{
    std::string word = "'";
    for (const char character : text) {
        word += character == '\'' ? std::string("'\\''") : std::string(1, character);
    }
    return word + "'";
}

double secondsOfSteadyClock()
{
    const auto sinceBoot = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double>(sinceBoot).count();
}

bool isWorthWaiting(double begin)
{
    std::this_thread::sleep_for(20ms);
    return secondsOfSteadyClock() - begin < patience;
}

TerminalWindow::TerminalWindow(const Person& person, const Settings& settings)
{
    Settings all = {
        {"LC_ALL", "C.UTF-8"}, {"XDG_STATE_HOME", person.stateHome().string()},
        {"PS1", "ready> "},    {"PATH", "/usr/bin:/bin"},
        {"TZ", "UTC"},         {"Q", QUILLMERE_PROGRAM " --directory " + person.directory().string()}};
    for (const auto& [name, value] : settings) {
        all[name] = value;
    }
    std::string line = "env -i TERM=\"$TERM\"";
    for (const auto& [name, value] : all) {
        line += " " + shellWord(name + "=" + value);
    }
    tmux("-u -f /dev/null new-session -d -x 80 -y 24 " + shellWord(line + " sh -i"));
    EXPECT_TRUE(shows("ready>"));
}

TerminalWindow::~TerminalWindow() { tmux("kill-server"); }

std::string TerminalWindow::tmux(const std::string& arguments) const
{
    return outputOf("tmux -S " + shellWord((directory_.path() / "socket").string()) + " " + arguments +
                    " 2>&1");
}

void TerminalWindow::types(const std::string& text) const { tmux("send-keys -l -- " + shellWord(text)); }

void TerminalWindow::presses(const std::string& keys) const { tmux("send-keys " + keys); }

void TerminalWindow::sends(const std::string& bytes) const { tmux("send-keys -H " + bytes); }

void TerminalWindow::pastes(const std::string& text) const
{
    tmux("set-buffer -- " + shellWord(text));
    tmux("paste-buffer -p");
}

void TerminalWindow::runs(const std::string& line) const
{
    types(line);
    presses("Enter");
}

void TerminalWindow::resize(int columns, int rows) const
{
    tmux("resize-window -x " + std::to_string(columns) + " -y " + std::to_string(rows));
}

std::string TerminalWindow::screen(bool withLooks) const
{
    return tmux(withLooks ? "capture-pane -p -e" : "capture-pane -p");
}

std::string TerminalWindow::variable(const std::string& name) const
{
    return tmux("display-message -p " + shellWord("#{" + name + "}"));
}

testing::AssertionResult TerminalWindow::shows(const std::string& text) const { return waitFor(text, true); }

testing::AssertionResult TerminalWindow::showsNoMore(const std::string& text) const
{
    return waitFor(text, false);
}

testing::AssertionResult TerminalWindow::waitFor(const std::string& text, bool isThere) const
{
    std::string seen;
    const bool came = waitUntil([&] {
        seen = screen();
        return (seen.find(text) != std::string::npos) == isThere;
    });
    return (came ? testing::AssertionSuccess() : testing::AssertionFailure()) << text << " in\n" << seen;
}

}  // namespace quillmere::test
