// A window of a real terminal with a shell in it.
#pragma once

#include <map>
#include <string>

#include "program_testing.hpp"
#include "support/eventually.hpp"

namespace quillmere::test {

/// A shell in a tmux server of its own, which ends with the object. In it "$Q" is the real program with the
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
    /// Pastes a text, bracketed where the program has asked for that.
    void pastes(const std::string& text) const;
    /// Types a command line and presses Enter.
    void runs(const std::string& line) const;
    void resize(int columns, int rows) const;
    /// Gives the window a background, "#faf9f6", with which it answers programs that ask for it.
    void paint(const std::string& background) const;

    /// The text on the screen, with the sequences for colours and the like if `withLooks`.
    std::string screen(bool withLooks = false) const;

    /// One of tmux's variables of the window, such as "cursor_flag".
    std::string variable(const std::string& name) const;

    /// Waits until a text is on the screen, or no more.
    testing::AssertionResult shows(const std::string& text) const;
    testing::AssertionResult showsNoMore(const std::string& text) const;

private:
    std::string tmux(const Words& command) const;
    testing::AssertionResult waitFor(const std::string& text, bool isThere) const;

    TemporaryDirectory directory_;
};

}  // namespace quillmere::test
