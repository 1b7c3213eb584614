// The real program, in a process of its own.
#pragma once

#include <sys/types.h>

#include <filesystem>
#include <string>
#include <vector>

#include "program_testing.hpp"

namespace quillmere::test {

/// Where a standard channel leads.
struct Channel {
    enum class Kind { usual, closed, file };

    Kind kind = Kind::usual;  ///< nothing to read; what is printed is caught
    std::filesystem::path file = {};
};

inline const Channel closed{.kind = Channel::Kind::closed};
inline const Channel fullDevice{.kind = Channel::Kind::file, .file = "/dev/full"};

struct Channels {
    Channel in = {};
    Channel out = {};
    Channel err = {};
};

/// How a process ended: its exit code, or 128 and the signal that ended it, as shells say it.
struct ProcessEnding {
    int code;
    std::string out;
    std::string err;
};

/// A process that runs until it is waited for. Files catch what it prints, so that it never has to wait
/// for a reader.
class RealProgram {
public:
    explicit RealProgram(const Words& arguments, const Channels& channels = {});
    RealProgram(const RealProgram&) = delete;
    RealProgram& operator=(const RealProgram&) = delete;
    ~RealProgram();

    /// Waits for the end; once.
    ProcessEnding wait();

private:
    TemporaryDirectory caught_;
    pid_t process_ = -1;
};

/// Runs the program on a pseudo-terminal that has all three channels, with `typed` typed ahead. What it
/// printed, the echo of the terminal included, is `out`, with the terminal's line ends made plain.
ProcessEnding onTerminal(const Words& arguments, const std::string& typed);

}  // namespace quillmere::test
