// Opens the live screen. On a terminal this is the action for a command line without a command.
#include "cli/commands.hpp"
#include "screen/loop.hpp"

#include <utility>

namespace quillmere::cli {

bool isForScreen(Program& program)
{
    return !program.settings().json && screen::hasScreen(program.environment());
}

void openScreen(Program& program, std::optional<WidgetRoute> route)
{
    if (program.settings().json) {
        throw ProgramError(ExitCode::usage, "ui prints no JSON; use status --json.");
    }
    // Before the workspace, which would print what is wrong on the terminal that the screen covers.
    const config::Configuration& configuration = program.configurationInSilence();
    screen::showScreen(program.workspace(), program.environment(), route, configuration);
}

void addUi(CLI::App& line, Program& program)
{
    addCommand(line, program, "ui", "Open the live screen (the default on a terminal)",
               [&program] { openScreen(program, std::nullopt); });
    program.action = [&program, statusAction = std::exchange(program.action, nullptr)] {
        if (isForScreen(program)) {
            openScreen(program, std::nullopt);
        } else {
            statusAction();
        }
    };
}

}  // namespace quillmere::cli
