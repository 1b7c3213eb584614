// The whole command line, to be looked at without a run.
#pragma once

#include "cli/command_line.hpp"

#include <CLI/CLI.hpp>

#include <sstream>

#include "cli/program.hpp"
#include "program_testing.hpp"

namespace quillmere::test {

struct WholeCommandLine {
    std::istringstream in = {};
    std::ostringstream out = {};
    base::Environment environment{.in = in,
                                  .out = out,
                                  .err = out,
                                  .clock = [] { return moment; },
                                  .inputIsTerminal = false,
                                  .outputIsTerminal = false};
    cli::Program program{environment};
    CLI::App line{"", "quillmere"};

    WholeCommandLine() { cli::defineCommandLine(line, program); }
};

}  // namespace quillmere::test
