// The live screen, which is also what the program shows when nothing is asked of it.
#include "ui/loop.hpp"

#include "commands/commands.hpp"

#include <utility>

namespace quillmere::app {

void addUi(CLI::App& line, Program& program)
{
    addCommand(line, program, "ui", "Open the live screen (the default on a terminal)",
               [&program] { ui::showScreen(program, std::nullopt); });
    program.action = [&program, otherwise = std::exchange(program.action, nullptr)] {
        if (ui::hasScreen(program)) {
            ui::showScreen(program, std::nullopt);
        } else {
            otherwise();
        }
    };
}

}  // namespace quillmere::app
