// Runs the real program under strace, which records its system calls and can make one fail or kill the
// program there.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillmere::test {

/// Whether strace is installed and may trace a program; otherwise tests are skipped.
bool canTrace();

inline constexpr const char* cannotTrace = "strace is not installed or not allowed to trace";

/// A system call on the chosen directory.
struct TracedCall {
    std::string name;     ///< the system's name, such as "openat"
    std::size_t ordinal;  ///< index among all calls of that name in the whole run, from 1, as strace counts
    std::string text;     ///< the line of the log: arguments, paths of descriptors, result
};

struct TracedRun {
    int code;  ///< the exit code, or 128 plus the signal
    std::vector<TracedCall> calls;
    std::string err = {};
};

/// Runs "quillmere --directory D" with more arguments. Returns the calls that name `concerned` or anything in
/// it. `injection` is an injection of strace ("write:error=EIO:when=3"), or empty. Versions are kept in
/// `stateHome`; when it is empty, in a new directory for every run, so that all runs make the same calls.
TracedRun traced(const std::filesystem::path& directory, const std::vector<std::string>& arguments,
                 const std::filesystem::path& concerned, const std::string& injection = {},
                 const std::filesystem::path& stateHome = {});

}  // namespace quillmere::test
