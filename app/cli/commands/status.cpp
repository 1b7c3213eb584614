// Prints the status.
#include "cli/status.hpp"
#include "cli/commands.hpp"

#include <nlohmann/json.hpp>

namespace quillmere::cli {
namespace {

void showStatus(Program& program)
{
    const workspace::Situation situation = program.workspace().look(base::Reach::present);
    if (program.settings().json) {
        program.print(statusJson(situation));
    } else {
        printStatus(program.environment().out, situation, program.style(), program.configuration().values);
    }
}

}  // namespace

void addStatus(CLI::App& line, Program& program)
{
    const auto action = [&program] { showStatus(program); };
    addCommand(line, program, "status", "Show where the work stands (the default off a terminal)", action);
    program.action = action;
}

}  // namespace quillmere::cli
