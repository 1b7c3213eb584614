// A window of a real terminal with a shell in it.
#pragma once

#include <map>
#include <string>

#include "program_testing.hpp"

namespace quillmere::test {

/// A shell in a tmux of its own, which ends with the object. In it "$Q" is the real program with the
/// directory of a person.
class TerminalWindow {
public:
    using Settings = std::map<std::string, std::string>;

    /// A window of 80 by 24. `settings` are environment variables besides the usual ones.
    explicit TerminalWindow(const Person& person, const Settings& settings = {});
    TerminalWindow(const TerminalWindow&) = delete;
    TerminalWindow& operator=(const TerminalWindow&) = delete;
    ~TerminalWindow();

    /// Types a text as it is.
    void types(const std::string& text) const;
    /// Presses keys by tmux's names: "Enter C-s".
    void presses(const std::string& keys) const;
    /// Sends bytes, each two hexadecimal digits: "c3 a9".
    void sends(const std::string& bytes) const;
    /// Pastes a text, with marks around it where the program has asked for them.
    void pastes(const std::string& text) const;
    /// Types a command line and sends it off.
    void runs(const std::string& line) const;
    void resize(int columns, int rows) const;

    /// What is to be seen, with the sequences for colours and the like if `withLooks`.
    std::string screen(bool withLooks = false) const;

    /// One of tmux's variables of the window, such as "cursor_flag".
    std::string variable(const std::string& name) const;

    /// Waits until a text is to be seen, or is not any more.
    testing::AssertionResult shows(const std::string& text) const;
    testing::AssertionResult showsNoMore(const std::string& text) const;

    /// Waits until a condition holds.
    template <class Condition>
    static bool waitUntil(Condition condition);

private:
    std::string tmux(const std::string& arguments) const;
    testing::AssertionResult waitFor(const std::string& text, bool isThere) const;

    TemporaryDirectory directory_;
};

/// A text as one word of a shell.
std::string shellWord(const std::string& text);

/// Sleeps for a moment; whether there is still time before `begin` lies too far back.
bool isWorthWaiting(double begin);
double secondsOfSteadyClock();

template <class Condition>
bool TerminalWindow::waitUntil(Condition condition)
{
    const double begin = secondsOfSteadyClock();
    while (!condition()) {
        if (!isWorthWaiting(begin)) {
            return false;
        }
    }
    return true;
}

}  // namespace quillmere::test
