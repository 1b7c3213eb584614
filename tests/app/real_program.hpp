// The real program, in a process of its own.
#pragma once

#include <string>

#include "program_testing.hpp"
#include "support/process.hpp"

namespace quillmere::test {

/// Its standard channels.
struct Channels {
    Channel in = Channel::null();
    Channel out = Channel::captured();
    Channel err = Channel::captured();
};

/// A device to which every write fails, because it is full.
inline Channel fullDevice() { return Channel::toFile("/dev/full"); }

/// All of them closed.
inline Channels noChannels() { return {Channel::closed(), Channel::closed(), Channel::closed()}; }

/// How the program is started with these arguments.
ProcessOptions realProgram(const Words& arguments, const Channels& channels = {});

/// Whether strace is installed and may trace a program; otherwise tests are skipped.
bool canTrace();

inline constexpr const char* cannotTrace = "strace is not installed or not allowed to trace";

/// The same start under strace, with these options of it.
ProcessOptions traced(ProcessOptions options, const Words& straceOptions);

/// Runs the program to its end.
ProcessEnding runProgram(const Words& arguments, const Channels& channels = {});

/// Runs it on a pseudo-terminal, with `typed` typed ahead. `out` has everything that appears there, the
/// terminal's echo too, with plain line ends.
ProcessEnding runOnTerminal(const Words& arguments, const std::string& typed = "");

}  // namespace quillmere::test
