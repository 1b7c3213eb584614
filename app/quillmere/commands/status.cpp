// Says where the work stands.
#include "report/status.hpp"
#include "commands/commands.hpp"

namespace quillmere::app {
namespace {

void showStatus(Program& program)
{
    const Situation situation = program.workspace().look();
    if (program.settings().json) {
        program.print(statusJson(situation));
    } else {
        printStatus(program.environment().out, situation, program.style());
    }
}

}  // namespace

void addStatus(CLI::App& line, Program& program)
{
    const auto action = [&program] { showStatus(program); };
    addCommand(line, program, "status", "Show where the work stands (the default off a terminal)", action);
    program.action = action;
}

}  // namespace quillmere::app
