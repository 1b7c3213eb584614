#include "run.hpp"
#include "workspace/state_home.hpp"

#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>

int main(int count, char** arguments)
{
    const auto wallClock = [] {
        const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
        return quillmere::Instant(std::chrono::duration<double>(sinceEpoch).count());
    };
    quillmere::app::Environment environment{
        .in = std::cin,
        .out = std::cout,
        .err = std::cerr,
        .clock = wallClock,
        .inputIsTerminal = ::isatty(STDIN_FILENO) == 1,
        .outputIsTerminal = ::isatty(STDOUT_FILENO) == 1,
        .stateHome = quillmere::app::stateHomeOfThisUser(),
        .input = STDIN_FILENO,
        .output = STDOUT_FILENO,
    };
    return static_cast<int>(
        quillmere::app::run({arguments + std::min(count, 1), arguments + count}, environment));
}
