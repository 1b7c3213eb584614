// Lets time pass: for whoever runs the program every so often.
#include "commands/commands.hpp"
#include "report/status.hpp"

namespace quillmere::app {

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

}  // namespace quillmere::app
