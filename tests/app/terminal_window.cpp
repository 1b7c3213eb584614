#include "terminal_window.hpp"

#include <sstream>

#include "support/process.hpp"

namespace quillmere::test {
namespace {

/// A command of tmux and its arguments, which stand in a text with spaces between them.
Words withArguments(Words command, const std::string& arguments)
{
    std::istringstream words(arguments);
    for (std::string word; words >> word;) {
        command.push_back(word);
    }
    return command;
}

}  // namespace

TerminalWindow::TerminalWindow(const Person& person, const Settings& settings)
{
    Settings all = {
        {"LC_ALL", "C.UTF-8"}, {"XDG_STATE_HOME", person.stateHome().string()},
        {"PS1", "ready> "},    {"PATH", "/usr/bin:/bin"},
        {"TZ", "UTC"},         {"Q", QUILLMERE_PROGRAM " --directory " + person.directory().string()}};
    for (const auto& [name, value] : settings) {
        all[name] = value;
    }
    // tmux sets TERM for the shell that it starts with this line.
    std::string line = "env -i TERM=\"$TERM\"";
    for (const auto& [name, value] : all) {
        line += " " + shellWord(name + "=" + value);
    }
    tmux({"-u", "-f", "/dev/null", "new-session", "-d", "-x", "80", "-y", "24", line + " sh -i"});
    EXPECT_TRUE(shows("ready>"));
}

TerminalWindow::~TerminalWindow() { tmux({"kill-server"}); }

std::string TerminalWindow::tmux(const Words& command) const
{
    Words words = {"tmux", "-S", (directory_.path() / "socket").string()};
    words.insert(words.end(), command.begin(), command.end());
    return run({.words = words, .error = Channel::sameAsOut()}).out;
}

void TerminalWindow::types(const std::string& text) const { tmux({"send-keys", "-l", "--", text}); }

void TerminalWindow::presses(const std::string& keys) const { tmux(withArguments({"send-keys"}, keys)); }

void TerminalWindow::sends(const std::string& bytes) const
{
    tmux(withArguments({"send-keys", "-H"}, bytes));
}

void TerminalWindow::pastes(const std::string& text) const
{
    tmux({"set-buffer", "--", text});
    tmux({"paste-buffer", "-p"});
}

void TerminalWindow::runs(const std::string& line) const
{
    types(line);
    presses("Enter");
}

void TerminalWindow::paint(const std::string& background) const
{
    tmux({"set-option", "-g", "window-style", "bg=" + background});
}

void TerminalWindow::resize(int columns, int rows) const
{
    tmux({"resize-window", "-x", std::to_string(columns), "-y", std::to_string(rows)});
}

std::string TerminalWindow::screen(bool withLooks) const
{
    return tmux(withLooks ? Words{"capture-pane", "-p", "-e"} : Words{"capture-pane", "-p"});
}

std::string TerminalWindow::variable(const std::string& name) const
{
    return tmux({"display-message", "-p", "#{" + name + "}"});
}

testing::AssertionResult TerminalWindow::shows(const std::string& text) const { return waitFor(text, true); }

testing::AssertionResult TerminalWindow::showsNoMore(const std::string& text) const
{
    return waitFor(text, false);
}

testing::AssertionResult TerminalWindow::waitFor(const std::string& text, bool isThere) const
{
    std::string seen;
    const auto isAsExpected = [&] {
        seen = screen();
        return (seen.find(text) != std::string::npos) == isThere;
    };
    return eventually(isAsExpected, [&] {
        return seen + "\nwhich should " + (isThere ? "show: " : "no longer show: ") + text;
    });
}

}  // namespace quillmere::test
