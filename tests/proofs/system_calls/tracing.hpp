// The real program under strace, which sees its system calls and can make one fail or kill the program there.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmere::test {

/// Whether strace can be run and lets a program be traced; tests are skipped where it does not.
bool canTrace();

inline constexpr const char* cannotTrace = "strace is not installed, or may not trace here";

/// A system call that concerned the directory in question.
struct TracedCall {
    std::string name;     ///< as the system has it: "openat"
    std::size_t ordinal;  ///< among all calls of that name in the whole run, from 1, as strace counts
    std::string text;     ///< the whole line: arguments, paths of descriptors, result
};

struct TracedRun {
    int code;  ///< the exit code, or 128 and the signal
    std::vector<TracedCall> calls;
};

/// Runs "quillmere --directory D" with more arguments. The calls that name `concerned` or anything in it
/// are returned. `injection` is what strace does to them ("write:error=EIO:when=3"), empty for nothing.
TracedRun traced(const std::filesystem::path& directory, const std::vector<std::string>& arguments,
                 const std::filesystem::path& concerned, const std::string& injection = {});

}  // namespace quillmere::test
