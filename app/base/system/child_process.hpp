// Child processes that run beside this one.
#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

namespace quillmere::base {

/// How a program is started.
struct ChildProgram {
    std::vector<std::string> words;           ///< the program, looked up in PATH, and its arguments
    std::vector<std::string> variables = {};  ///< NAME=value, on top of the environment
    int input = -1;                           ///< its standard input; -1: /dev/null
    int output = -1;                          ///< its standard output; -1: the same as standard error
};

/// Starts a program with its three standard channels open and nothing else, with no signal blocked, and with
/// the signals that this program ignores at their defaults. Throws `std::system_error` when it cannot be
/// started.
pid_t startChild(const ChildProgram& program);

/// How a child has ended.
struct ChildEnding {
    bool hasEnded;
    std::string failure;  ///< "it ended with 3", "it was ended by signal 9"; empty: exit code 0
};

/// Whether and how a child has ended; reaps it if so. Never waits.
ChildEnding endingOf(pid_t child);

/// Waits until a child has ended, and reaps it.
ChildEnding awaitEnding(pid_t child);

/// Ends a child by SIGKILL and reaps it.
void killChild(pid_t child);

}  // namespace quillmere::base
