// Child processes of a test: programs, shells, and functions that run in a copy of this process.
//
//     Process bar({.words = {"quillmere", "bar", "--follow"}, .output = Channel::pipe()});
//     EXPECT_EQ(bar.line(), "");
//     bar.send(SIGTERM);
//     EXPECT_EQ(bar.wait().code, 0);
//
// Every wait has a limit. The destructor kills a child that still runs.
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
    /// Instead of `words`: a function that runs in a copy of this process, which exits with the returned
    /// code, or with 1 on an exception. No destructor outside of `work` runs.
    std::function<int()> work = {};
    Channel input = Channel::null();
    Channel output = Channel::captured();
    Channel error = Channel::captured();
    /// Variables to add to or change in this process's environment; without a value: to remove.
    std::map<std::string, std::optional<std::string>> environment = {};
    bool inheritsEnvironment = true;
    /// The working directory; empty: this process's.
    std::filesystem::path directory = {};
    /// Runs in the child immediately before exec: sets limits, signals, the user.
    std::function<void()> inChild = {};

    /// The size of the pseudo-terminal for `Channel::terminal`, which controls the child.
    TerminalSize terminal = {};
    /// Text typed on the terminal before the child starts.
    std::string typed = {};
};

/// The end of a child.
struct ProcessEnding {
    int code = -1;   ///< the exit code, or 128 plus the signal, as in a shell
    int signal = 0;  ///< the signal that ended the child; 0 for none
    std::string out = {};
    std::string err = {};        ///< the captured output
    std::size_t mostMemory = 0;  ///< peak memory of the child and its own children, in bytes
};

class Process {
public:
    /// Starts the child as the leader of a new process group. Throws `std::system_error` when the program
    /// cannot be started.
    explicit Process(const ProcessOptions& options);
    Process(Process&& other) noexcept;
    Process& operator=(Process&&) = delete;
    /// Kills the process group of a child whose end was not waited for.
    ~Process();

    pid_t number() const { return process_; }

    /// Writes to the child's input: a pipe, a socket or the terminal. Returns false when it is closed on
    /// either side. Fails the test when the child does not read within the limit.
    bool write(std::string_view text);
    void closeInput() { input_.close(); }

    /// The next line of the child's output (a pipe, a socket or the terminal), without the line end. Fails
    /// the test when no line comes in time.
    std::string line();
    /// The rest of the output, until the child closes it. Fails the test when that takes too long.
    std::string rest();
    /// Whether output can be read now.
    bool hasOutput() const;
    void closeOutput() { output_.close(); }

    /// The output captured so far.
    std::string out() const;
    std::string err() const;

    void send(int signal) const;
    bool hasEnded();
    /// Waits until a signal has stopped the child; returns false when the child ends instead.
    bool waitForStop();
    /// Waits for the end. A child that does not end within the limit is killed and fails the test. Does not
    /// read a piped output: call `rest` first if the child may fill the pipe.
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

/// Runs a command line of the shell.
ProcessEnding runShell(const std::string& line, ProcessOptions options = {});

/// A text quoted as one word of a shell command line.
std::string shellWord(std::string_view text);

/// Whether a command can be started and exits with 0, such as "strace -V".
bool succeeds(const std::vector<std::string>& words);

/// Opens both ends of a FIFO, so that neither opening, reading nor writing blocks.
Descriptor openFifo(const std::filesystem::path& path);

}  // namespace quillmere::test
