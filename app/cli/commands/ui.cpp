// The live screen, which is also what the program shows when nothing is asked of it.
#include "cli/commands/commands.hpp"
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
        throw ProgramError(ExitCode::usage,
                           "The screen is for persons; for programs there is status --json.");
    }
    screen::showScreen(program.workspace(), program.environment(), route);
}

void addUi(CLI::App& line, Program& program)
{
    addCommand(line, program, "ui", "Open the live screen (the default on a terminal)",
               [&program] { openScreen(program, std::nullopt); });
    program.action = [&program, otherwise = std::exchange(program.action, nullptr)] {
        if (isForScreen(program)) {
            openScreen(program, std::nullopt);
        } else {
            otherwise();
        }
    };
}

}  // namespace quillmere::cli
