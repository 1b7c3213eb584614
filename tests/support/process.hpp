// Child processes of a test: programs, shells, and functions that run in a copy of this process.
//
//     Process bar({.words = {"quillmere", "bar", "--follow"}, .output = Channel::pipe()});
//     EXPECT_EQ(bar.line(), "");
//     bar.send(SIGTERM);
//     EXPECT_EQ(bar.wait().code, 0);
//
// Whatever waits has a limit; a child that still runs at the end of its object's life is killed.
#pragma once

#include <gtest/gtest.h>
#include <sys/types.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "support/channel.hpp"
#include "support/descriptor.hpp"
#include "support/eventually.hpp"

namespace quillmere::test {

struct TerminalSize {
    unsigned short rows = 24;
    unsigned short columns = 80;
};

/// How a child is started.
struct ProcessOptions {
    /// The program, looked up in PATH, and its arguments.
    std::vector<std::string> words = {};
    /// Instead of `words`: runs in a copy of this process, which exits with the code that it returns, or with
    /// 1 when it throws. Nothing that this process began is ended there: no destructor outside of `work`
    /// runs.
    std::function<int()> work = {};
    Channel input = Channel::null();
    Channel output = Channel::captured();
    Channel error = Channel::captured();
    /// Variables that the child has besides this process's, or with another value; without one: not at all.
    std::map<std::string, std::optional<std::string>> environment = {};
    bool inheritsEnvironment = true;
    /// The working directory; empty: this process's.
    std::filesystem::path directory = {};
    /// Last step in the child before it becomes the program: limits, signals, the user.
    std::function<void()> inChild = {};

    /// Of the pseudo-terminal to which `Channel::terminal` leads, and which controls the child.
    TerminalSize terminal = {};
    /// Typed on it before the child starts.
    std::string typed = {};
};

/// How a child ended.
struct ProcessEnding {
    int code = -1;   ///< the exit code, or 128 and the signal, as shells say it
    int signal = 0;  ///< that ended it; 0 for none
    std::string out = {};
    std::string err = {};        ///< what was captured
    std::size_t mostMemory = 0;  ///< that it and its own children needed at once, in bytes
};

class Process {
public:
    /// Starts the child, as the leader of a process group of its own. Throws `std::system_error` when the
    /// program cannot be started.
    explicit Process(const ProcessOptions& options);
    Process(Process&& other) noexcept;
    Process& operator=(Process&&) = delete;
    /// Kills the group of a child that nobody has waited for.
    ~Process();

    pid_t number() const { return process_; }

    /// Writes to its input: a pipe, a socket or the terminal. False when that is closed on either side.
    /// Fails the test when the child does not read within the limit.
    bool write(std::string_view text);
    void closeInput() { input_.close(); }

    /// The next line of its output, which is a pipe, a socket or the terminal; without the line end. Fails
    /// the test when none comes.
    std::string line();
    /// All that follows until the output is closed on the child's side. Fails the test when that takes too
    /// long.
    std::string rest();
    /// Whether something can be read from its output now.
    bool hasOutput() const;
    void closeOutput() { output_.close(); }

    /// What was captured so far.
    std::string out() const;
    std::string err() const;

    void send(int signal) const;
    bool hasEnded();
    /// Waits until a signal has stopped it; false when it ends instead.
    bool waitForStop();
    /// Waits for the end. A child that does not end within the limit is killed and fails the test. Reads
    /// nothing of a piped output: a child that writes much needs `rest` first.
    ProcessEnding wait(std::chrono::milliseconds limit = patience);

private:
    bool readMore();
    void killGroup() const;

    pid_t process_ = -1;
    std::string name_;  ///< for messages
    Descriptor input_;
    Descriptor output_;
    Descriptor capturedOut_;
    Descriptor capturedErr_;
    std::string unread_;
    std::optional<ProcessEnding> ending_;
};

/// Starts a child and waits for its end.
ProcessEnding run(const ProcessOptions& options, std::chrono::milliseconds limit = patience);

/// The same for a command line of the shell.
ProcessEnding runShell(const std::string& line, ProcessOptions options = {});

/// A text as one word of a shell's command line.
std::string shellWord(std::string_view text);

/// Whether `words` can be started and exit with 0: "strace", "-V".
bool succeeds(const std::vector<std::string>& words);

/// Both ends of a FIFO. Opening it never waits for a reader or a writer, nor does reading or writing.
Descriptor openFifo(const std::filesystem::path& path);

}  // namespace quillmere::test
