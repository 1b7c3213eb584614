// Lets time pass: for whoever runs the program every so often.
#include "cli/commands/commands.hpp"
#include "cli/status.hpp"

#include <nlohmann/json.hpp>

namespace quillmere::cli {

void addTick(CLI::App& line, Program& program)
{
    addCommand(line, program, "tick", "Begin a block that is due, end a session whose time is up",
               [&program] {
                   program.letTimePass();
                   if (program.settings().json) {
                       program.print({{"events", eventsJson(program.events())}});
                   }
               });
}

}  // namespace quillmere::cli
