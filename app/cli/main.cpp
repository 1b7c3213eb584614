#include "cli/run.hpp"
#include "workspace/state_home.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>

namespace {

/// A standard channel that is closed would be the next file that is opened, which others then write to. It
/// becomes one of a kind on which what is read or printed there fails as it did; messages are lost.
void holdClosedChannels()
{
    for (const int channel : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(channel, F_GETFD) == -1) {
            ::open("/dev/null", channel == STDOUT_FILENO ? O_RDONLY : O_RDWR);
        }
    }
}

}  // namespace

int main(int count, char** arguments)
{
    holdClosedChannels();
    const auto wallClock = [] {
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        return quillmere::Instant(std::chrono::duration<double>(sinceEpoch).count());
    };
    quillmere::base::Environment environment{
        .in = std::cin,
        .out = std::cout,
        .err = std::cerr,
        .clock = wallClock,
        .inputIsTerminal = ::isatty(STDIN_FILENO) == 1,
        .outputIsTerminal = ::isatty(STDOUT_FILENO) == 1,
        .stateHome = quillmere::workspace::stateHomeOfThisUser(),
        .input = STDIN_FILENO,
        .output = STDOUT_FILENO,
        .error = STDERR_FILENO,
    };
    return static_cast<int>(
        quillmere::cli::run({arguments + std::min(count, 1), arguments + count}, environment));
}
