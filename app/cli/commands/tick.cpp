// Records events since the last run, for timers and scripts that run the program periodically.
#include "cli/commands.hpp"
#include "cli/json_output.hpp"

#include <nlohmann/json.hpp>

namespace quillmere::cli {

void addTick(CLI::App& line, Program& program)
{
    addCommand(line, program, "tick", "Begin a block that is due, end a session whose time is up",
               [&program] {
                   program.catchUp();
                   if (program.settings().json) {
                       program.print({{"events", eventsJson(program.events())}});
                   }
               });
}

}  // namespace quillmere::cli
