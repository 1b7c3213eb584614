// Prints the agent's summary as of now, or runs the server for an agent.
#include "agent/door.hpp"
#include "agent/summary.hpp"
#include "base/text/sanitize.hpp"
#include "cli/commands.hpp"

#include <CLI/CLI.hpp>

#include <new>
#include <ostream>

namespace quillmere::cli {
namespace {

void serveAgent(Program& program)
{
    const base::Environment& environment = program.environment();
    try {
        agent::serve(program.workspace(), environment.input, environment.output);
    } catch (const std::bad_alloc&) {
        environment.err << "There was not enough memory. The last request may have been carried out: look "
                           "before you repeat it.\n";
        program.exitCode = ExitCode::outOfMemory;
    }
}

}  // namespace

void addAgent(CLI::App& line, Program& program)
{
    CLI::App* const command =
        line.add_subcommand("agent", "Print the summary that an agent reads, as of now (JSON)");
    command->fallthrough()->require_subcommand(0, 1);
    const CLI::App* const serve = addCommand(
        *command, program, "serve", "Serve an agent (Model Context Protocol over standard input and output)",
        [&program] { serveAgent(program); });
    command->callback([serve, &program] {
        if (!*serve) {
            program.command = "agent";
            program.action = [&program] {
                program.environment().out << base::sanitizedJson(agent::summaryText(program.workspace()))
                                          << '\n';
            };
        }
    });
}

}  // namespace quillmere::cli
