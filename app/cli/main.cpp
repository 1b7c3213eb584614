#include "cli/run.hpp"
#include "config/configuration.hpp"
#include "workspace/state_home.hpp"

#include <quillmere/store/wall_clock.hpp>

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <iostream>

namespace {

/// Opens closed standard descriptors on /dev/null. Otherwise the next file that is opened would get the
/// number of one, and output would be written into that file. Standard output becomes read-only, so that
/// printing a result still fails; messages to standard error are lost.
void reserveStandardDescriptors()
{
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) == -1) {
            ::open("/dev/null", descriptor == STDOUT_FILENO ? O_RDONLY : O_RDWR);
        }
    }
}

}  // namespace

int main(int count, char** arguments)
{
    reserveStandardDescriptors();
    // A file that would grow beyond the limit (setrlimit(2), RLIMIT_FSIZE) is an error of write(2), EFBIG.
    // The signal would end the program and leave the unfinished file.
    std::signal(SIGXFSZ, SIG_IGN);
    quillmere::base::Environment environment{
        .in = std::cin,
        .out = std::cout,
        .err = std::cerr,
        .clock = quillmere::wallClock,
        .inputIsTerminal = ::isatty(STDIN_FILENO) == 1,
        .outputIsTerminal = ::isatty(STDOUT_FILENO) == 1,
        .stateHome = quillmere::workspace::stateHomeOfThisUser(),
        .configDirectory = quillmere::config::directoryOfThisUser(),
        .input = STDIN_FILENO,
        .output = STDOUT_FILENO,
        .error = STDERR_FILENO,
    };
    return static_cast<int>(
        quillmere::cli::run({arguments + std::min(count, 1), arguments + count}, environment));
}
